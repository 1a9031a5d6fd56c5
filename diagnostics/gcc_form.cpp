#include <string_view>

#include "diagnostics/colour.h"
#include "diagnostics/forms.h"
#include "types/one_line.h"

namespace diagnostics {
namespace {

void AppendLocation(const xmi::Location& location, std::string& line) {
  line += location.file.empty() ? "idlexport" : mdktoidl::OneLine(location.file);
  if (!location.file.empty() && location.line != 0) {
    line += ":" + std::to_string(location.line);
    if (location.column != 0) line += ":" + std::to_string(location.column);
  }
}

std::string_view WordFor(Severity severity) {
  if (severity == Severity::kNote) return "note:";
  return severity == Severity::kError ? "error:" : "warning:";
}

void AppendLine(const xmi::Location& location, Severity severity, std::string_view text,
                bool colour, std::string& lines) {
  const std::string_view word = WordFor(severity);
  AppendLocation(location, lines);
  lines.append(": ");
  lines.append(colour ? Coloured(word, severity) : word).append(" ");
  lines += mdktoidl::OneLine(text);
}

}  // namespace

std::string GccForm(std::span<const Diagnostic> diagnostics, bool colour) {
  std::string lines;
  for (const Diagnostic& diagnostic : diagnostics) {
    AppendLine(diagnostic.location, diagnostic.severity, diagnostic.text, colour, lines);
    if (!diagnostic.rule.empty()) lines.append(" [").append(diagnostic.rule).append("]");
    lines += '\n';
    for (const Related& related : diagnostic.related) {
      AppendLine(related.location, Severity::kNote, related.text, colour, lines);
      lines += '\n';
    }
  }
  return lines;
}

}  // namespace diagnostics
