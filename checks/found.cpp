#include "checks/found.h"

#include <algorithm>

namespace checks {

bool DiagnosticList::HasErrors() const {
  return std::ranges::any_of(found_, [](const auto& each) {
    return SeverityOf(each.second.message) == mdktoidl::Severity::error;
  });
}

std::vector<mdktoidl::Diagnostic> DiagnosticList::Sorted() && {
  std::ranges::stable_sort(found_, {}, [](const auto& each) { return each.first; });
  std::vector<mdktoidl::Diagnostic> sorted;
  for (auto& [serial, diagnostic] : found_) sorted.push_back(std::move(diagnostic));
  return sorted;
}

}  // namespace checks
