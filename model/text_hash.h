// Hashes texts of the length of names and ids, for tables in memory only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "model/same_text.h"

namespace model {

/// Reads eight bytes at a time; the last step may read bytes again, which does no harm. Texts that
/// differ in their last letter alone differ in all parts of their hashes.
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
