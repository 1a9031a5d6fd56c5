#include "output/comment.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "options/options.h"
#include "types/elements.h"
#include "types/text.h"

namespace mdktoidl {

namespace {

/// Compilers may take such a line end for none, the second as a trigraph.
bool SwallowsTheNext(std::string_view line) {
  return line.ends_with('\\') || line.ends_with("?\?/");
}

/// Control characters that IDL allows nowhere; a carriage return ends a line for some compilers.
bool isForbidden(char character) {
  const auto code = static_cast<unsigned char>(character);
  const bool isBlank = character == '\t' || character == '\v' || character == '\f';
  return (code < 0x20 && !isBlank) || code == 0x7f;
}

bool NeedsRepair(std::string_view line) {
  return SwallowsTheNext(line) || std::ranges::any_of(line, isForbidden);
}

std::string Repaired(std::string_view line) {
  std::string repaired(line);
  std::ranges::replace_if(repaired, isForbidden, ' ');
  const std::string_view trimmed = TrimEndOfString(repaired);
  return std::string(trimmed) + (SwallowsTheNext(trimmed) ? " ." : "");
}

/// Calls `visit` with each line of an element's comments, without the blanks at its end.
template <typename Visit>
void ForEachLine(mdk::IMdeEntity* element, Visit visit) {
  for (mdk::IMdeEntity* comment : Elements(element, properties::comment)) {
    const std::string text = comment->GetValue(properties::text, 0);
    std::string_view rest = text;
    while (!rest.empty()) {
      const std::string_view line = rest.substr(0, rest.find('\n'));
      visit(TrimEndOfString(line));
      rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
  }
}

}  // namespace

bool WriteComments(mdk::IMdeEntity* element, Writer& out) {
  const bool mayRepair = !options.isVerbatim();
  bool isRepaired = false;
  ForEachLine(element, [&](std::string_view line) {
    newline(out);
    out << "// ";
    if (!mayRepair || !NeedsRepair(line)) {
      out << line;
    } else {
      out << Repaired(line);
      isRepaired = true;
    }
  });
  return isRepaired;
}

}  // namespace mdktoidl
