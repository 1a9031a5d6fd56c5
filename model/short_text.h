// Compares and hashes texts of the length of names and ids, without a call.
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

/// Whether two texts have the same words at some offsets; words may overlap.
template <typename Word, std::size_t count>
bool SameWords(std::string_view left, std::string_view right, const std::size_t (&offsets)[count]) {
  std::uint64_t difference = 0;
  for (const std::size_t at : offsets) {
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

/// For tables in memory only. Reads eight bytes at a time; the last step may read bytes again,
/// which does no harm. Texts that differ in their last letter alone differ in all parts of their
/// hashes.
inline std::uint32_t HashOfText(std::string_view text) {
  constexpr std::uint64_t spread = 0x9e3779b97f4a7c15u;
  const char* const bytes = text.data();
  const std::size_t size = text.size();
  std::uint64_t hash = size;
  const auto mix = [&hash](std::uint64_t word) {
    hash = (hash ^ word) * spread;
    hash ^= hash >> 29;
  };
  if (size >= 8) {
    for (std::size_t at = 0; at + 8 < size; at += 8) mix(Load<std::uint64_t>(bytes + at));
    mix(Load<std::uint64_t>(bytes + size - 8));
  } else if (size >= 4) {
    mix(Load<std::uint32_t>(bytes) | Load<std::uint32_t>(bytes + size - 4) << 32);
  } else {
    for (const char c : text) mix(static_cast<unsigned char>(c));
  }
  return static_cast<std::uint32_t>(hash * spread >> 32);
}

}  // namespace model
