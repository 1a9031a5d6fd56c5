#include "command/remarks.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "command/element_finder.h"

namespace command {
namespace {

/// How many kinds of passed over elements the summary names.
constexpr std::size_t mostKinds = 8;

std::string SummaryOf(const std::map<std::string, std::size_t>& passedOver) {
  std::vector<std::pair<std::string, std::size_t>> kinds(passedOver.begin(), passedOver.end());
  std::stable_sort(kinds.begin(), kinds.end(),
                   [](const auto& left, const auto& right) { return left.second > right.second; });
  std::string line;
  std::size_t rest = 0;
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    const auto& [kind, count] = kinds[i];
    if (i >= mostKinds) {
      rest += count;
      continue;
    }
    line += (line.empty() ? "" : ", ") + std::to_string(count) + " " + kind;
  }
  if (rest != 0) line += " and " + std::to_string(rest) + " of other kinds";
  return "passed over " + line;
}

}  // namespace

std::vector<Diagnostic> DiagnosticsOf(const xmi::Reader& reader) {
  std::vector<Diagnostic> diagnostics;
  for (const xmi::Diagnostic& remark : reader.Diagnostics()) {
    Diagnostic diagnostic;
    if (remark.element != nullptr) PointAt(reader, *remark.element, diagnostic);
    diagnostic.text = remark.text;
    diagnostic.rule = remark.rule;
    diagnostic.location = remark.location;
    diagnostics.push_back(std::move(diagnostic));
  }
  return diagnostics;
}

std::string PassedOverText(const xmi::Reader& reader) {
  return reader.PassedOver().empty() ? "" : SummaryOf(reader.PassedOver());
}

}  // namespace command
