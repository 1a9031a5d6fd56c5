#include <string_view>

#include "diagnostics/colour.h"
#include "diagnostics/forms.h"
#include "diagnostics/one_line.h"

namespace diagnostics {
namespace {

void AppendPlace(const xmi::Location& place, std::string& line) {
  line += place.file.empty() ? "idlexport" : OneLine(place.file);
  if (!place.file.empty() && place.line != 0) {
    line += ":" + std::to_string(place.line);
    if (place.column != 0) line += ":" + std::to_string(place.column);
  }
}

}  // namespace

std::string GccForm(std::span<const Diagnostic> diagnostics, bool colour) {
  std::string lines;
  for (const Diagnostic& diagnostic : diagnostics) {
    const bool isError = diagnostic.severity == Severity::kError;
    const std::string_view word = isError ? "error:" : "warning:";
    AppendPlace(diagnostic.location, lines);
    lines.append(": ");
    lines.append(colour ? Coloured(word, diagnostic.severity) : word).append(" ");
    lines += OneLine(diagnostic.text);
    if (!diagnostic.rule.empty()) lines.append(" [").append(diagnostic.rule).append("]");
    lines += '\n';
  }
  return lines;
}

}  // namespace diagnostics
