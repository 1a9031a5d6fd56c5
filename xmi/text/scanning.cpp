#include "xmi/text/scanning.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace xmi {
namespace {

// The standard functions for some of these depend on the locale.
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsHexDigit(char c) { return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
bool IsNameStart(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool IsNamePart(char c) { return IsNameStart(c) || IsDigit(c); }

std::size_t TakeDigits(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
  const auto count = static_cast<std::size_t>(end - text.begin());
  text.remove_prefix(count);
  return count;
}

bool IsInteger(std::string_view text) {
  const bool isHex = text.size() > 2 && (text.starts_with("0x") || text.starts_with("0X"));
  if (isHex) return std::all_of(text.begin() + 2, text.end(), IsHexDigit);
  if (text.empty() || !std::all_of(text.begin(), text.end(), IsDigit)) return false;
  const bool isOctal = text.size() > 1 && text[0] == '0';
  return !isOctal || text.find_first_of("89") == text.npos;
}

// A floating point or fixed point number.
bool IsReal(std::string_view text) {
  std::size_t digits = TakeDigits(text);
  bool isReal = false;
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    digits += TakeDigits(text);
    isReal = true;
  }
  if (digits == 0) return false;
  if (text == "d" || text == "D") return true;
  if (text.starts_with('e') || text.starts_with('E')) {
    text.remove_prefix(1);
    if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
    if (TakeDigits(text) == 0) return false;
    isReal = true;
  }
  return isReal && text.empty();
}

// True when the text is one literal between such quotes, not two.
bool IsWhole(std::string_view text, char quote) {
  if (text.size() < 2 || text.front() != quote) return false;
  std::size_t at = 1;
  while (at < text.size() && text[at] != quote) at += text[at] == '\\' ? 2 : 1;
  return at == text.size() - 1;
}

}  // namespace

std::string_view TakeWord(std::string_view& text) {
  const auto begin = std::find_if_not(text.begin(), text.end(), IsBlank);
  const auto end = std::find_if(begin, text.end(), IsBlank);
  text = {end, text.end()};
  return {begin, end};
}

std::string Lowered(std::string_view text) {
  std::string lowered(text);
  for (char& c : lowered) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lowered;
}

std::string PercentDecoded(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isEscape =
        text[i] == '%' && i + 2 < text.size() && IsHexDigit(text[i + 1]) && IsHexDigit(text[i + 2]);
    unsigned char byte = static_cast<unsigned char>(text[i]);
    if (isEscape) {
      std::from_chars(&text[i + 1], &text[i + 1] + 2, byte, 16);
      i += 2;
    }
    result += static_cast<char>(byte);
  }
  return result;
}

LiteralKind KindOfLiteral(std::string_view text) {
  text = Trimmed(text);
  if (text.empty()) return LiteralKind::kNone;
  std::string_view number = text;
  if (number[0] == '-' || number[0] == '+') number = Trimmed(number.substr(1));
  if (IsInteger(number)) return LiteralKind::kInteger;
  if (IsReal(number)) return LiteralKind::kReal;
  const std::string_view quoted = text[0] == 'L' ? text.substr(1) : text;
  if (IsWhole(quoted, '"')) return LiteralKind::kString;
  if (quoted.size() > 2 && IsWhole(quoted, '\'')) return LiteralKind::kCharacter;
  return LiteralKind::kNone;
}

bool IsName(std::string_view text) {
  if (text.starts_with("::")) text.remove_prefix(2);
  while (true) {
    if (text.empty() || !IsNameStart(text[0])) return false;
    const auto end = std::find_if_not(text.begin(), text.end(), IsNamePart);
    text.remove_prefix(static_cast<std::size_t>(end - text.begin()));
    if (text.empty()) return true;
    if (!text.starts_with("::")) return false;
    text.remove_prefix(2);
  }
}

std::optional<std::string> NaturalNumber(std::string_view text) {
  text = Trimmed(text);
  if (text.starts_with('+')) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  if (point != text.npos) {
    if (text.find_first_not_of('0', point + 1) != text.npos) return std::nullopt;
    text = text.substr(0, point);
  }
  // The agent computes with signed numbers of 64 bits.
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = error == std::errc() && end == text.data() + text.size();
  if (!isWhole || text.starts_with('-')) return std::nullopt;
  return std::to_string(number);
}

std::string Quoted(std::string_view text, char quote, bool wide) {
  const bool isWide = text.size() > 1 && text[0] == 'L' && IsWhole(text.substr(1), quote);
  if (isWide) return std::string(text);
  std::string result = wide ? "L" : "";
  if (IsWhole(text, quote)) return result + std::string(text);
  result += quote;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escapes = text[i] == '\\' && i + 1 < text.size();
    if (escapes) result += text[i++];
    if (text[i] == '\n') {
      result += escapes ? "n" : "\\n";
    } else {
      if (!escapes && (text[i] == quote || text[i] == '\\')) result += '\\';
      result += text[i];
    }
  }
  return result + quote;
}

}  // namespace xmi
