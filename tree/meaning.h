// What the name of a declaration may stand for, and what a place wants it to.
#pragma once

#include <cstdint>
#include <string_view>

namespace mdktoidl {

/// A set of what stands below: an interface is a type as well.
using Meanings = std::uint16_t;

namespace meanings {

inline constexpr Meanings type = 1;
inline constexpr Meanings interface = 2;
inline constexpr Meanings value = 4;
inline constexpr Meanings event = 8;
inline constexpr Meanings component = 16;
inline constexpr Meanings home = 32;
inline constexpr Meanings exception = 64;
inline constexpr Meanings constant = 128;
inline constexpr Meanings facet = 256;
inline constexpr Meanings composition = 512;
inline constexpr Meanings boxed = 4096;
/// No name that others write: what a value type is made of and made by.
inline constexpr Meanings state = 1024;
inline constexpr Meanings factory = 2048;

}  // namespace meanings

/// What a place wants. Any of the meanings will do; all of them where there are none.
struct Expectation {
  Meanings meanings = 0;
  std::string_view word;  ///< for all of them: "interface"
};

}  // namespace mdktoidl
