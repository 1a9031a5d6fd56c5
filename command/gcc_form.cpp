#include "command/gcc_form.h"

#include <string_view>

#include "command/colour.h"

namespace command {
namespace {

void AppendEscaped(std::string_view text, std::string& line) {
  constexpr std::string_view digits = "0123456789abcdef";
  for (const char character : text) {
    const auto code = static_cast<unsigned char>(character);
    if (character == '\n') {
      line += "\\n";
    } else if (character == '\r') {
      line += "\\r";
    } else if (character == '\t') {
      line += "\\t";
    } else if (code < ' ' || code == 0x7F) {
      line.append("\\x").append(1, digits[code / 16]).append(1, digits[code % 16]);
    } else {
      line += character;
    }
  }
}

void AppendPlace(const xmi::Location& place, std::string& line) {
  AppendEscaped(place.file.empty() ? "idlexport" : place.file, line);
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
    AppendEscaped(diagnostic.text, lines);
    if (!diagnostic.rule.empty()) lines.append(" [").append(diagnostic.rule).append("]");
    lines += '\n';
  }
  return lines;
}

}  // namespace command
