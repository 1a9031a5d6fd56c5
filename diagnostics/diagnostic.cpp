#include "diagnostics/diagnostic.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "model/vocabulary.h"

namespace diagnostics {
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

Severity SeverityFor(mdktoidl::Severity severity) {
  if (severity == mdktoidl::Severity::note) return Severity::kNote;
  const bool isWarning =
      severity == mdktoidl::Severity::warning || severity == mdktoidl::Severity::remark;
  return isWarning ? Severity::kWarning : Severity::kError;
}

/// Tells where an element stands and what it is called.
void PointAt(const xmi::Reader& reader, const model::Element& element, Diagnostic& diagnostic) {
  diagnostic.location = reader.Locate(element);
  diagnostic.element = reader.QualifiedName(element);
  if (diagnostic.element.empty()) diagnostic.element = element.Text(model::properties::name);
  diagnostic.id = reader.IdOf(element);
}

}  // namespace

bool operator<(const Diagnostic& left, const Diagnostic& right) {
  const auto key = [](const Diagnostic& each) {
    return std::tie(each.location.file, each.location.line, each.location.column, each.rule,
                    each.text, each.severity, each.id);
  };
  return key(left) < key(right);
}

Diagnostic Locate(const mdktoidl::Diagnostic& found, const xmi::Reader& reader,
                  const model::Element& artifact) {
  const mdktoidl::Severity severity = SeverityOf(found.message);
  Diagnostic located;
  located.severity = SeverityFor(severity);
  located.isAboutLegality = mdktoidl::isAboutLegality(found.message);
  located.text = severity == mdktoidl::Severity::fatal ? "export aborted: " : "";
  located.text += TextOf(found);
  if (located.text.ends_with('.')) located.text.pop_back();
  located.rule = RuleOf(found.message);
  const auto* element = static_cast<const model::Element*>(found.element);
  if (element != nullptr) PointAt(reader, *element, located);
  if (located.location.file.empty()) PointAt(reader, artifact, located);
  for (const auto& [related, text] : found.related) {
    located.related.push_back({text, reader.Locate(static_cast<const model::Element&>(*related))});
  }
  return located;
}

std::vector<Diagnostic> DiagnosticsOf(const xmi::Reader& reader) {
  std::vector<Diagnostic> diagnostics;
  for (const xmi::Diagnostic& found : reader.Diagnostics()) {
    Diagnostic diagnostic;
    if (found.element != nullptr) PointAt(reader, *found.element, diagnostic);
    diagnostic.text = found.text;
    diagnostic.rule = found.rule;
    diagnostic.location = found.location;
    diagnostics.push_back(std::move(diagnostic));
  }
  return diagnostics;
}

std::string PassedOverText(const xmi::Reader& reader) {
  return reader.PassedOver().empty() ? "" : SummaryOf(reader.PassedOver());
}

}  // namespace diagnostics
