// Takes short texts apart: blanks, words between them, escapes, and IDL's literals and names.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace xmi {

/// What XML takes for white space.
inline constexpr std::string_view kBlanks = " \t\r\n";

/// The text without the blanks around it.
inline std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == text.npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

/// The next word of a text, which is cut off it; empty at the end.
std::string_view TakeWord(std::string_view& text);

/// Calls `visit` with each of the words between blanks.
template <typename Visit>
void ForEachWord(std::string_view text, Visit visit) {
  for (std::string_view word = TakeWord(text); !word.empty(); word = TakeWord(text)) visit(word);
}

/// The text with its letters of ASCII in lower case.
std::string Lowered(std::string_view text);

/// The text of a URI with its escapes, "%20" and the like, resolved.
std::string PercentDecoded(std::string_view text);

enum class LiteralKind { kNone, kInteger, kReal, kCharacter, kString };

/// What literal of IDL a text is, with a sign if it is a number. Blanks around it don't belong
/// to it.
LiteralKind KindOfLiteral(std::string_view text);

/// True for a name of IDL or names with "::" between them or before.
bool IsName(std::string_view text);

/// A decimal number without sign or leading zeros, of a text that is one, as "3", "+03" or "3.0";
/// nothing for other texts or for more than a 64-bit number holds.
std::optional<std::string> NaturalNumber(std::string_view text);

/// A text as a literal in the quotes given. One that has the quotes already is kept; quotes,
/// line ends and a last backslash within it are written so that the literal is whole.
std::string Quoted(std::string_view text, char quote, bool wide);

}  // namespace xmi
