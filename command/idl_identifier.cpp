#include "command/idl_identifier.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace command {
namespace {

// Not those of <cctype>: the user's locale has no say in what IDL allows.
constexpr bool IsLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

constexpr bool IsDigit(char character) { return character >= '0' && character <= '9'; }

constexpr bool MayFollow(char character) {
  return IsLetter(character) || IsDigit(character) || character == '_';
}

/// By character, whether it may follow in a name: each of a million names is looked through.
constexpr auto follows = [] {
  std::array<bool, 256> result{};
  for (int character = 0; character < 128; ++character) {
    result[character] = MayFollow(static_cast<char>(character));
  }
  return result;
}();

char Small(char character) {
  const bool isCapital = character >= 'A' && character <= 'Z';
  return isCapital ? static_cast<char>(character - 'A' + 'a') : character;
}

}  // namespace

bool IsIdentifier(std::string_view name) {
  name = Unescaped(name);
  if (name.empty() || !IsLetter(name.front())) return false;
  for (const unsigned char each : name) {
    if (!follows[each]) return false;
  }
  return true;
}

std::string Folded(std::string_view text) {
  std::string folded(text);
  for (char& character : folded) character = Small(character);
  return folded;
}

bool IsSameName(std::string_view left, std::string_view right) {
  left = Unescaped(left);
  right = Unescaped(right);
  return left == right || std::ranges::equal(left, right, {}, Small, Small);
}

// Eight bytes at a time, each without the bit that tells capitals from small letters. That makes
// one of some other characters, too, which only makes their names share a hash.
std::size_t NameHash::operator()(std::string_view name) const {
  name = Unescaped(name);
  std::uint64_t hash = name.size();
  while (!name.empty()) {
    std::uint64_t word = 0;
    const std::size_t size = std::min(name.size(), sizeof word);
    std::memcpy(&word, name.data(), size);
    hash = (hash ^ (word & 0xDFDFDFDFDFDFDFDFU)) * 0x9E3779B97F4A7C15U;
    hash ^= hash >> 29;
    name.remove_prefix(size);
  }
  return hash * 0x9E3779B97F4A7C15U;  // the last letters are to reach all of the upper half
}

}  // namespace command
