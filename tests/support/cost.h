// Whether the time that something takes grows with its size, and no faster.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>

namespace support {

/// The processor time of this process, whatever else the machine does.
template <typename Run>
std::clock_t CostOf(Run run) {
  const std::clock_t start = std::clock();
  run();
  return std::clock() - start;
}

/// Holds what `cost` tells of a number of things against what it tells of many times as many. It
/// is asked twice for each, and the lesser time counts.
template <typename Cost>
void ExpectLinearCost(std::size_t few, Cost cost) {
  constexpr std::size_t times = 8;
  constexpr std::clock_t margin = 3;  // what grows with the square would take eight times more
  const auto least = [&cost](std::size_t count) { return std::min(cost(count), cost(count)); };
  EXPECT_LT(least(times * few), margin * static_cast<std::clock_t>(times) * least(few));
}

}  // namespace support
