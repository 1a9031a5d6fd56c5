// Recognises and writes IDL's literals.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace xmi {

enum class LiteralKind { kNone, kInteger, kReal, kCharacter, kString };

/// What literal of IDL a text is, with a sign if it is a number. Blanks around it don't belong
/// to it.
LiteralKind KindOfLiteral(std::string_view text);

/// True for a name of IDL or names with "::" between them or before.
bool IsName(std::string_view text);

/// The text without the blanks around it.
std::string_view WithoutBlanks(std::string_view text);

/// A decimal number without sign or leading zeros, of a text that is one, as "3", "+03" or "3.0";
/// nothing for other texts or for more than a 64-bit number holds.
std::optional<std::string> NaturalNumber(std::string_view text);

/// A text as a literal in the quotes given. One that has the quotes already is kept; quotes,
/// line ends and a last backslash within it are written so that the literal is whole.
std::string Quoted(std::string_view text, char quote, bool wide);

}  // namespace xmi
