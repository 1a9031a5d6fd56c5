// Decisions for generators of models: from a seed, or from the bytes that a fuzzer offers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace support {

class Choices {
 public:
  /// An endless row of decisions; the same seed gives the same on every machine.
  explicit Choices(std::uint64_t seed) : state_(seed) {}
  /// The bytes in turn; when they are used up, every decision is the first of its possibilities.
  /// Borrows them.
  explicit Choices(std::span<const std::uint8_t> bytes) : bytes_(bytes), isLimited_(true) {}

  /// A number below `bound`, which is not 0.
  std::size_t Below(std::size_t bound) {
    const std::size_t number = Next();
    // A fuzzer's bytes are used sparingly: one decides among few, two among more.
    return (isLimited_ && bound > 256 ? number * 256 + Next() : number) % bound;
  }
  /// True in so many of a hundred cases.
  bool Chance(std::size_t percent) { return Below(100) >= 100 - percent; }

  template <typename List>
  auto& Of(List& list) {
    return list[Below(std::size(list))];
  }

  template <typename Item>
  void Shuffle(std::vector<Item>& items) {
    for (std::size_t left = items.size(); left > 1; --left) {
      std::swap(items[left - 1], items[Below(left)]);
    }
  }

 private:
  std::size_t Next() {
    if (!isLimited_) {  // a step of "splitmix64"
      std::uint64_t mixed = state_ += 0x9e3779b97f4a7c15u;
      mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9u;
      mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebu;
      return static_cast<std::size_t>(mixed ^ (mixed >> 31));
    }
    if (bytes_.empty()) return 0;
    const std::uint8_t byte = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return byte;
  }

  std::uint64_t state_ = 0;
  std::span<const std::uint8_t> bytes_;
  bool isLimited_ = false;
};

}  // namespace support
