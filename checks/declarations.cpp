#include "checks/declarations.h"

#include <algorithm>

#include "diagnostics/one_line.h"

namespace checks {

std::string WrittenScopedName(const Node& node) {
  std::vector<std::string_view> inwards;
  for (const Node* each = &node; each != nullptr; each = each->Enclosing()) {
    inwards.push_back(each->WrittenName());
  }
  std::string name(inwards.back());
  for (std::size_t i = inwards.size() - 1; i-- > 0;) name.append("::").append(inwards[i]);
  return name;
}

std::string Describe(const Node& node) {
  return std::string(node.Kind().word) + " " + diagnostics::OneLine(WrittenScopedName(node));
}

const Node& Outermost(const Node& node) {
  const Node* each = &node;
  while (each->Enclosing() != nullptr) each = each->Enclosing();
  return *each;
}

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
