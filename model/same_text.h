// Compares texts of the length of names, without a call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace model {

/// The bytes of a text that make up one word.
template <typename Word>
std::uint64_t Load(const char* bytes) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

/// Whether two texts have the same words at some places; words may overlap.
template <typename Word, std::size_t count>
bool SameWords(std::string_view left, std::string_view right, const std::size_t (&places)[count]) {
  std::uint64_t difference = 0;
  for (const std::size_t at : places) {
    difference |= Load<Word>(left.data() + at) ^ Load<Word>(right.data() + at);
  }
  return difference == 0;
}

/// Whether two texts are the same.
inline bool SameText(std::string_view left, std::string_view right) {
  const std::size_t size = left.size();
  if (size != right.size()) return false;
  if (size < 4 || size > 24) return left == right;
  if (size < 8) return SameWords<std::uint32_t>(left, right, {0, size - 4});
  return SameWords<std::uint64_t>(left, right, {0, std::size_t{size > 16} * 8, size - 8});
}

}  // namespace model
