// Whether the time that something takes grows with its size, and no faster.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <limits>

namespace support {

/// The processor time of this process, whatever else the machine does.
template <typename Run>
std::clock_t CostOf(Run run) {
  const std::clock_t start = std::clock();
  run();
  return std::clock() - start;
}

/// Holds what `cost` tells of `many` things against what it tells of a small part of them. A busy
/// machine and what no longer fits its caches make a thing up to four times dearer among many, so
/// the least of some attempts counts; what grows with the square is dearer in every attempt.
template <typename Cost>
void ExpectLinearCost(std::size_t many, Cost cost) {
  constexpr std::clock_t times = 32;  // so much dearer is each thing at a growth with the square
  constexpr std::clock_t margin = 8;
  std::clock_t ofMany = std::numeric_limits<std::clock_t>::max();
  std::clock_t ofFew = ofMany;
  for (int attempt = 0; attempt < 5; ++attempt) {
    ofFew = std::min(ofFew, cost(many / times));
    ofMany = std::min(ofMany, cost(many));
    if (ofMany / times < margin * ofFew) return;
  }
  FAIL() << times << " times as many took " << ofMany << " instead of " << ofFew;
}

}  // namespace support
