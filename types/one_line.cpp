#include "types/one_line.h"

#include <algorithm>

namespace mdktoidl {
namespace {

bool IsControl(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code < 0x20 || code == 0x7f;
}

std::string Escaped(char character) {
  constexpr std::string_view digits = "0123456789abcdef";
  switch (character) {
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      const auto code = static_cast<unsigned char>(character);
      return {'\\', 'x', digits[code >> 4], digits[code & 15]};
  }
}

}  // namespace

bool HasControl(std::string_view text) { return std::ranges::any_of(text, IsControl); }

std::string OneLine(std::string_view text) {
  std::string line;
  for (const char character : text) {
    if (IsControl(character)) {
      line += Escaped(character);
    } else {
      line += character;
    }
  }
  return line;
}

}  // namespace mdktoidl
