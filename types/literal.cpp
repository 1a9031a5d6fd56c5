#include "types/literal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>

#include "types/identifier.h"
#include "types/text.h"

namespace mdktoidl {

namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }

bool isOctal(char character) { return character >= '0' && character <= '7'; }

bool isHexadecimal(char character) {
  return isDigit(character) || (character >= 'a' && character <= 'f') ||
         (character >= 'A' && character <= 'F');
}

using Test = bool (*)(char);

/// Takes at most `most` characters that pass the test off the front.
std::string_view TakeWhile(std::string_view& text, Test test,
                           std::size_t most = std::string::npos) {
  std::size_t size = 0;
  while (size < text.size() && size < most && test(text[size])) ++size;
  const std::string_view taken = text.substr(0, size);
  text.remove_prefix(size);
  return taken;
}

bool Take(std::string_view& text, std::string_view expected) {
  if (!text.starts_with(expected)) return false;
  text.remove_prefix(expected.size());
  return true;
}

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\r"), text.size()));
  return TrimEndOfString(text);
}

/// The value of digits; nothing when it takes more than 64 bits.
std::optional<std::uint64_t> ValueOf(std::string_view digits, int base) {
  std::uint64_t value = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
  if (error != std::errc()) return std::nullopt;
  return value;
}

Literal Integer(std::string_view digits, int base) {
  const auto value = ValueOf(digits, base);
  Literal literal;
  literal.kind = LiteralKind::integer;
  literal.isTooLarge = !value;
  literal.number = value.value_or(0);
  return literal;
}

Literal ReadHexadecimal(std::string_view text) {
  text.remove_prefix(2);
  const bool isWhole = !text.empty() && std::ranges::all_of(text, isHexadecimal);
  return isWhole ? Integer(text, 16) : Literal();
}

Literal ReadDigits(std::string_view digits) {
  if (digits.front() != '0' || digits.size() == 1) return Integer(digits, 10);
  return std::ranges::all_of(digits, isOctal) ? Integer(digits, 8) : Literal();
}

bool TakeExponent(std::string_view& text) {
  if (!Take(text, "e") && !Take(text, "E")) return false;
  if (!Take(text, "+")) Take(text, "-");
  return !TakeWhile(text, isDigit).empty();
}

/// A number without its sign.
Literal ReadNumber(std::string_view text) {
  if (text.starts_with("0x") || text.starts_with("0X")) return ReadHexadecimal(text);
  std::string_view digits = TakeWhile(text, isDigit);
  if (text.empty()) return digits.empty() ? Literal() : ReadDigits(digits);
  const bool hasPoint = Take(text, ".");
  const std::string_view fraction = hasPoint ? TakeWhile(text, isDigit) : std::string_view();
  if (digits.empty() && fraction.empty()) return {};
  Literal literal;
  if (text == "d" || text == "D") {
    literal.kind = LiteralKind::fixed;
    TakeWhile(digits, [](char character) { return character == '0'; });
    literal.integerDigits = digits.size();
  } else if (text.empty() || (TakeExponent(text) && text.empty())) {
    literal.kind = LiteralKind::floating;
  }
  return literal;
}

Literal ReadSignedNumber(std::string_view text) {
  const bool isNegative = Take(text, "-");
  if (!isNegative) Take(text, "+");
  Literal literal = ReadNumber(Trimmed(text));
  literal.isNegative = isNegative;
  return literal;
}

std::optional<std::uint64_t> CodeOfDigits(std::string_view digits, int base, std::uint64_t most) {
  const auto code = digits.empty() ? std::nullopt : ValueOf(digits, base);
  return code && *code <= most ? code : std::nullopt;
}

constexpr std::uint64_t greatestByte = 0xFF;

/// What stands behind a backslash, as its code. IDL leaves open what other letters mean, and
/// compilers take them for themselves.
std::optional<std::uint64_t> TakeEscape(std::string_view& text, bool isWide) {
  if (text.empty()) return std::nullopt;
  const char letter = text.front();
  if (isOctal(letter)) return CodeOfDigits(TakeWhile(text, isOctal, 3), 8, greatestByte);
  text.remove_prefix(1);
  if (letter == 'x' && !text.empty() && isHexadecimal(text.front())) {
    return CodeOfDigits(TakeWhile(text, isHexadecimal, 2), 16, greatestByte);
  }
  if (letter == 'u') {
    if (!isWide) return std::nullopt;
    return CodeOfDigits(TakeWhile(text, isHexadecimal, 4), 16, 0xFFFF);
  }
  constexpr std::string_view letters = "abfnrtv";
  constexpr std::string_view codes = "\a\b\f\n\r\t\v";
  const std::size_t place = letters.find(letter);
  return static_cast<unsigned char>(place == std::string_view::npos ? letter : codes[place]);
}

bool isLineEnd(char character) { return character == '\n' || character == '\r'; }

std::optional<std::uint64_t> TakeCharacter(std::string_view& text, bool isWide) {
  const char character = text.front();
  text.remove_prefix(1);
  if (character == '\\') return TakeEscape(text, isWide);
  if (isLineEnd(character)) return std::nullopt;
  return static_cast<unsigned char>(character);
}

/// Takes what stands between two quotes, with these; appends to `literal`. False when it is faulty.
bool TakeQuoted(std::string_view& text, char quote, bool isWide, Literal& literal) {
  text.remove_prefix(1);
  while (!text.empty() && text.front() != quote) {
    const auto code = TakeCharacter(text, isWide);
    if (!code) return false;
    literal.holdsZero = literal.holdsZero || *code == 0;
    ++literal.number;
    if (quote == '\'') literal.number = *code;
  }
  if (text.empty()) return false;
  text.remove_prefix(1);
  return true;
}

Literal ReadCharacter(std::string_view text, bool isWide) {
  Literal literal;
  std::string_view inside = text.substr(1);
  const bool isOne = !inside.empty() && inside.front() != '\'' && TakeCharacter(inside, isWide) &&
                     inside == "'" && static_cast<unsigned char>(text[1]) < 0x80;
  if (isOne && TakeQuoted(text, '\'', isWide, literal)) {
    literal.kind = isWide ? LiteralKind::wideCharacter : LiteralKind::character;
  }
  return literal;
}

Literal ReadString(std::string_view text, bool isWide) {
  Literal literal;
  const std::string_view opening = isWide ? "L\"" : "\"";
  do {
    if (!TakeQuoted(text, '"', isWide, literal)) return {};
    text = Trimmed(text);
    if (isWide && text.starts_with(opening)) text.remove_prefix(1);
  } while (text.starts_with('"'));
  if (text.empty()) literal.kind = isWide ? LiteralKind::wideString : LiteralKind::string;
  return literal;
}

/// The whole numbers that a type holds.
struct Range {
  std::string_view type;
  std::uint64_t least;  ///< without its sign
  std::uint64_t most;
};

template <typename Number>
constexpr Range RangeOf(std::string_view type) {
  constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<Number>::max());
  return {type, std::numeric_limits<Number>::is_signed ? most + 1 : 0, most};
}

constexpr std::array ranges = {
    RangeOf<std::uint8_t>("octet"),
    RangeOf<std::int16_t>("short"),
    RangeOf<std::int32_t>("long"),
    RangeOf<std::int64_t>("long long"),
    RangeOf<std::uint16_t>("unsigned short"),
    RangeOf<std::uint32_t>("unsigned long"),
    RangeOf<std::uint64_t>("unsigned long long"),
};

const Range* FindRange(std::string_view type) {
  const auto found = std::ranges::find(ranges, type, &Range::type);
  return found == ranges.end() ? nullptr : &*found;
}

bool isInRange(const Literal& literal, std::string_view type) {
  const Range& range = *FindRange(type);
  return !literal.isTooLarge && literal.number <= (literal.isNegative ? range.least : range.most);
}

/// The first number in the brackets of a template's text; the greatest there is without any.
std::uint64_t FirstParameter(std::string_view type) {
  const std::size_t bracket = type.find('<');
  if (bracket == std::string_view::npos) return std::numeric_limits<std::uint64_t>::max();
  type.remove_prefix(bracket + 1);
  return ReadLiteral(
             TakeWhile(type, [](char character) { return character != ',' && character != '>'; }))
      .number;
}

/// The code of the one character that a text of UTF-8 is, where that is none of ASCII; 0 for all
/// else.
std::uint32_t CodeOfOne(std::string_view text) {
  if (text.size() < 2 || text.size() > 3) return 0;
  const auto first = static_cast<unsigned char>(text[0]);
  const bool fits = text.size() == 2 ? (first & 0xE0U) == 0xC0U : (first & 0xF0U) == 0xE0U;
  std::uint32_t code = first & (text.size() == 2 ? 0x1FU : 0x0FU);
  for (const unsigned char next : text.substr(1)) {
    if ((next & 0xC0U) != 0x80U) return 0;
    code = code << 6U | (next & 0x3FU);
  }
  return fits ? code : 0;
}

std::string Hexadecimal(std::uint32_t number, std::size_t width) {
  constexpr int base = 16;
  std::array<char, 8> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, base).ptr;
  const std::string text(digits.data(), end);
  return std::string(width - std::min(width, text.size()), '0') + text;
}

/// A character of another alphabet, which compilers take for several, by its code.
std::string CharacterOf(std::string_view type, std::string_view text) {
  const bool isWide = type == "wchar";
  std::string_view inside = text;
  Take(inside, "L");
  if (inside.size() > 2 && inside.front() == '\'' && inside.back() == '\'') {
    inside = inside.substr(1, inside.size() - 2);
  }
  const std::uint32_t code = CodeOfOne(inside);
  if (code == 0 || (!isWide && code > greatestByte)) return std::string(text);
  return isWide ? "L'\\u" + Hexadecimal(code, 4) + "'" : "'\\x" + Hexadecimal(code, 2) + "'";
}

std::string WithEscapedLineEnds(std::string_view text) {
  std::string result;
  for (const char character : text) {
    if (isLineEnd(character)) {
      result += character == '\n' ? "\\n" : "\\r";
    } else {
      result += character;
    }
  }
  return result;
}

/// What is in quotes with the prefix of wide literals, or without.
std::string Prefixed(bool isWide, std::string_view text) {
  Take(text, "L");
  return (isWide ? "L" : "") + WithEscapedLineEnds(text);
}

std::string FloatingOf(std::string_view text) {
  const Literal literal = ReadLiteral(text);
  if (literal.kind != LiteralKind::integer) return std::string(text);
  std::string_view digits = text;
  digits.remove_prefix(std::min(digits.find_first_of("0123456789"), digits.size()));
  const bool isDecimal = digits.size() == 1 || digits.front() != '0';
  if (isDecimal) return std::string(text) + ".0";
  if (literal.isTooLarge) return std::string(text);
  return (literal.isNegative ? "-" : "") + std::to_string(literal.number) + ".0";
}

std::string FixedOf(std::string_view text) {
  const LiteralKind kind = ReadLiteral(text).kind;
  const bool isDecimal = text.find_first_not_of("+-. 0123456789") == std::string_view::npos;
  const bool isNumber = kind == LiteralKind::integer || kind == LiteralKind::floating;
  return std::string(text) + (isNumber && isDecimal ? "d" : "");
}

std::string BooleanOf(std::string_view text) {
  std::string_view word = text;
  if (word.size() > 2 && word.front() == '"' && word.back() == '"') {
    word = word.substr(1, word.size() - 2);
  }
  const std::string folded = Folded(word);
  if (folded == "true") return "TRUE";
  return folded == "false" ? "FALSE" : std::string(text);
}

std::string Converted(std::string_view type, std::string_view text) {
  switch (KindOfLiterals(type)) {
    case LiteralKind::boolean:
      return BooleanOf(text);
    case LiteralKind::floating:
      return FloatingOf(text);
    case LiteralKind::fixed:
      return FixedOf(text);
    case LiteralKind::character:
    case LiteralKind::wideCharacter: {
      const std::string prefixed = Prefixed(type == "wchar", text);
      return isValueOf(ReadLiteral(prefixed), type) ? prefixed : CharacterOf(type, text);
    }
    case LiteralKind::string:
    case LiteralKind::wideString:
      return Prefixed(type.starts_with('w'), text);
    default:
      return std::string(text);
  }
}

}  // namespace

Literal ReadLiteral(std::string_view text) {
  text = Trimmed(text);
  if (text.empty()) return {};
  if (text == "TRUE" || text == "FALSE") {
    Literal literal;
    literal.kind = LiteralKind::boolean;
    literal.number = text == "TRUE" ? 1 : 0;
    return literal;
  }
  const bool isWide = Take(text, "L");
  if (text.starts_with('"')) return ReadString(text, isWide);
  if (text.starts_with('\'')) return ReadCharacter(text, isWide);
  return isWide ? Literal() : ReadSignedNumber(text);
}

LiteralKind KindOfLiterals(std::string_view type) {
  if (FindRange(type) != nullptr) return LiteralKind::integer;
  if (type == "boolean") return LiteralKind::boolean;
  if (type == "char") return LiteralKind::character;
  if (type == "wchar") return LiteralKind::wideCharacter;
  if (type == "float" || type.ends_with("double")) return LiteralKind::floating;
  if (type.starts_with("fixed")) return LiteralKind::fixed;
  if (type.starts_with("string")) return LiteralKind::string;
  return type.starts_with("wstring") ? LiteralKind::wideString : LiteralKind::none;
}

bool isValueOf(const Literal& literal, std::string_view type) {
  if (literal.kind == LiteralKind::none || literal.kind != KindOfLiterals(type)) return false;
  switch (literal.kind) {
    case LiteralKind::integer:
      return isInRange(literal, type);
    case LiteralKind::fixed:
      return literal.integerDigits <= FirstParameter(type);
    case LiteralKind::string:
    case LiteralKind::wideString:
      return !literal.holdsZero && literal.number <= FirstParameter(type);
    default:
      return true;
  }
}

std::string LiteralOf(std::string_view type, std::string_view text) {
  if (isValueOf(ReadLiteral(text), type)) return std::string(text);
  const std::string converted = Converted(type, Trimmed(text));
  return isValueOf(ReadLiteral(converted), type) ? converted : std::string(text);
}

}  // namespace mdktoidl
