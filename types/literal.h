// Literals of IDL: what a text says, whether a predefined type has that value, and how the value is
// written for that type where the text as it is won't do.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace mdktoidl {

enum class LiteralKind : std::uint8_t {
  none,  ///< no literal; of a type: one that has no constants
  boolean,
  integer,
  floating,
  fixed,
  character,
  wideCharacter,
  string,
  wideString
};

struct Literal {
  LiteralKind kind = LiteralKind::none;
  bool isNegative = false;
  /// An integer that no type holds.
  bool isTooLarge = false;
  /// A string that holds the character 0, which IDL forbids.
  bool holdsZero = false;
  /// The value of a boolean or a character, an integer's without its sign, the length of a string.
  std::uint64_t number = 0;
  /// The digits of a fixed-point number before its point, without leading zeros.
  std::size_t integerDigits = 0;
};

/// Reads one literal, with a sign if it is a number, and blanks around it. Strings that stand side
/// by side are one.
Literal ReadLiteral(std::string_view text);

/// Of which kind the literals of a predefined type are, which is given by its IDL text: "unsigned
/// long", "string<8>".
LiteralKind KindOfLiterals(std::string_view type);

/// Whether a type has the value of a literal.
bool isValueOf(const Literal& literal, std::string_view type);

/// How IDL writes for that type what the text means. The text itself when it is right already, and
/// when nothing can be made of it.
std::string LiteralOf(std::string_view type, std::string_view text);

}  // namespace mdktoidl
