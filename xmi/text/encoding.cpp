#include "xmi/text/encoding.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "xmi/text/scanning.h"

namespace xmi {
namespace {

enum class Encoding { kUtf8, kAscii, kLatin1, kWindows1252, kUnknown };

// What windows-1252 has for the bytes 0x80 to 0x9F. Files have been seen to hold the five that are
// undefined there; those stand for themselves, as in ISO-8859-1.
constexpr std::array<char32_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& text, char32_t c) {
  if (c < 0x80) {
    text += static_cast<char>(c);
  } else if (c < 0x800) {
    text += static_cast<char>(0xC0 | (c >> 6));
    text += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    text += static_cast<char>(0xE0 | (c >> 12));
    text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    text += static_cast<char>(0xF0 | (c >> 18));
    text += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// What the XML declaration says, in lower case; empty without one. A file that never ends its
// declaration isn't searched as a whole.
std::string DeclaredEncoding(std::string_view bytes) {
  if (!bytes.starts_with("<?xml")) return "";
  const std::string_view declaration = bytes.substr(0, bytes.substr(0, 400).find("?>"));
  const std::size_t at = declaration.find_first_of("\"'", declaration.find("encoding"));
  if (at == bytes.npos) return "";
  const std::size_t end = declaration.find(declaration[at], at + 1);
  return end == bytes.npos ? "" : Lowered(declaration.substr(at + 1, end - at - 1));
}

Encoding EncodingOf(const std::string& name) {
  if (name.empty() || name == "utf-8" || name == "utf8") return Encoding::kUtf8;
  if (name == "ascii" || name == "us-ascii") return Encoding::kAscii;
  if (name == "iso-8859-1" || name == "latin1" || name == "latin-1") return Encoding::kLatin1;
  if (name == "windows-1252" || name == "cp1252") return Encoding::kWindows1252;
  return Encoding::kUnknown;
}

// The length of the well-formed UTF-8 sequence at the start of a text; 0 when there is none. The
// narrower ranges of second bytes shut out overlong forms, surrogates and what lies above U+10FFFF.
std::size_t Utf8Length(std::string_view text) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
  };
  const auto follows = [&](std::size_t i, unsigned low = 0x80, unsigned high = 0xBF) {
    return byte(i) >= low && byte(i) <= high;
  };
  const unsigned first = byte(0);
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return follows(1) ? 2 : 0;
  if (first >= 0xE0 && first <= 0xEF) {
    const unsigned low = first == 0xE0 ? 0xA0 : 0x80;
    const unsigned high = first == 0xED ? 0x9F : 0xBF;
    return follows(1, low, high) && follows(2) ? 3 : 0;
  }
  if (first >= 0xF0 && first <= 0xF4) {
    const unsigned low = first == 0xF0 ? 0x90 : 0x80;
    const unsigned high = first == 0xF4 ? 0x8F : 0xBF;
    return follows(1, low, high) && follows(2) && follows(3) ? 4 : 0;
  }
  return 0;
}

// The position of the first byte that is not ASCII, or the size.
std::size_t SkipAscii(std::string_view text, std::size_t from) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080u;
  while (from + 8 <= text.size()) {
    std::uint64_t eight;
    std::memcpy(&eight, text.data() + from, 8);
    if ((eight & kHighBits) != 0) break;
    from += 8;
  }
  while (from < text.size() && static_cast<unsigned char>(text[from]) < 0x80) ++from;
  return from;
}

std::string Hex(char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  return {'0', 'x', kDigits[value >> 4], kDigits[value & 15]};
}

EncodingError CheckUtf8(std::string_view text) {
  for (std::size_t at = SkipAscii(text, 0); at < text.size(); at = SkipAscii(text, at)) {
    const std::size_t length = Utf8Length(text.substr(at));
    if (length == 0) return {at, "byte " + Hex(text[at]) + " is not UTF-8"};
    at += length;
  }
  return {};
}

EncodingError CheckAscii(std::string_view text) {
  const std::size_t at = SkipAscii(text, 0);
  if (at == text.size()) return {};
  return {at, "byte " + Hex(text[at]) + " is not ASCII, the declared encoding"};
}

void WidenBytes(std::string& bytes, bool windows) {
  if (SkipAscii(bytes, 0) == bytes.size()) return;
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool special = windows && byte >= 0x80 && byte < 0xA0;
    AppendUtf8(text, special ? kWindows1252[byte - 0x80] : byte);
  }
  bytes = std::move(text);
}

EncodingError FromUtf16(std::string& bytes, bool bigEndian) {
  std::string text;
  text.reserve(bytes.size());
  const auto unit = [&](std::size_t at) -> char32_t {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return bigEndian ? first << 8 | second : second << 8 | first;
  };
  if (bytes.size() % 2 != 0) return {bytes.size() - 1, "the UTF-16 text ends within a character"};
  for (std::size_t at = 2; at < bytes.size(); at += 2) {
    char32_t c = unit(at);
    if (c >= 0xD800 && c < 0xE000) {
      const char32_t low = at + 2 < bytes.size() ? unit(at + 2) : 0;
      if (c >= 0xDC00 || low < 0xDC00 || low >= 0xE000) return {at, "half a UTF-16 character"};
      c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
      at += 2;
    }
    if (c == 0) return {at, "the text holds a NUL character"};
    AppendUtf8(text, c);
  }
  bytes = std::move(text);
  return {};
}

}  // namespace

EncodingError ToUtf8(std::string& bytes) {
  const std::string_view start(bytes);
  if (start.starts_with("\xFF\xFE")) return FromUtf16(bytes, false);
  if (start.starts_with("\xFE\xFF")) return FromUtf16(bytes, true);
  const std::size_t nul = start.find('\0');
  if (nul != start.npos) return {nul, "the text holds a NUL byte"};
  // A byte order mark outweighs what the file declares: it can't be in the text by accident.
  const bool marked = start.starts_with("\xEF\xBB\xBF");
  const std::string name = DeclaredEncoding(marked ? start.substr(3) : start);
  const Encoding encoding = marked ? Encoding::kUtf8 : EncodingOf(name);
  EncodingError error;
  if (encoding == Encoding::kUnknown) error = {0, "encoding \"" + name + "\" is not supported"};
  if (encoding == Encoding::kUtf8) error = CheckUtf8(start);
  if (encoding == Encoding::kAscii) error = CheckAscii(start);
  if (!error.text.empty()) return error;
  if (encoding == Encoding::kLatin1) WidenBytes(bytes, false);
  if (encoding == Encoding::kWindows1252) WidenBytes(bytes, true);
  if (marked) bytes.erase(0, 3);
  return {};
}

}  // namespace xmi
