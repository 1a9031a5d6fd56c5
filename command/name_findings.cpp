#include "command/name_findings.h"

#include <algorithm>

namespace command {

std::vector<Diagnostic> NameFindings::Diagnostics(const xmi::Reader& reader,
                                                  const Declarations& declarations,
                                                  const model::Element& artifact) {
  const auto place = [](const Finding& finding) {
    return finding.declaration == kNoDeclaration ? 0 : std::size_t{finding.declaration} + 1;
  };
  std::ranges::stable_sort(findings_, {}, place);
  std::vector<Diagnostic> diagnostics;
  for (const Finding& finding : findings_) {
    const bool isArtifacts = finding.declaration == kNoDeclaration;
    const model::Element& element =
        isArtifacts ? artifact : *declarations[finding.declaration].element;
    diagnostics.push_back({finding.severity, finding.text, std::string(finding.rule),
                           reader.Locate(element), reader.QualifiedName(element),
                           reader.IdOf(element)});
  }
  return diagnostics;
}

}  // namespace command
