#include <string_view>

#include "diagnostics/colour.h"
#include "diagnostics/forms.h"
#include "diagnostics/one_line.h"

namespace diagnostics {
namespace {

void AppendLocation(const xmi::Location& location, std::string& line) {
  line += location.file.empty() ? "idlexport" : OneLine(location.file);
  if (!location.file.empty() && location.line != 0) {
    line += ":" + std::to_string(location.line);
    if (location.column != 0) line += ":" + std::to_string(location.column);
  }
}

}  // namespace

std::string GccForm(std::span<const Diagnostic> diagnostics, bool colour) {
  std::string lines;
  for (const Diagnostic& diagnostic : diagnostics) {
    const bool isError = diagnostic.severity == Severity::kError;
    const std::string_view word = isError ? "error:" : "warning:";
    AppendLocation(diagnostic.location, lines);
    lines.append(": ");
    lines.append(colour ? Coloured(word, diagnostic.severity) : word).append(" ");
    lines += OneLine(diagnostic.text);
    if (!diagnostic.rule.empty()) lines.append(" [").append(diagnostic.rule).append("]");
    lines += '\n';
  }
  return lines;
}

}  // namespace diagnostics
