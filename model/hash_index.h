// Finds numbers by the hashes of what they number.
//
// Who uses it keeps what is numbered, in a list as a rule, and compares; so the same texts can be
// told apart in different ways. Nothing is ever taken out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace model {

class HashIndex {
 public:
  static constexpr std::uint32_t none = UINT32_MAX;

  HashIndex() : cells_(512) {}

  /// The number of that hash for which `isSame(number)` holds; `none` when there is none.
  template <typename IsSame>
  std::uint32_t Find(std::uint32_t hash, const IsSame& isSame) const {
    std::size_t at = First(hash);
    for (; cells_[at].number != none; at = Next(at)) {
      const Cell& cell = cells_[at];
      if (cell.hash == hash && isSame(cell.number)) return cell.number;
    }
    return none;
  }

  /// Makes room for one more, without which `Add` may not be called.
  void MakeRoom() {
    if (2 * (count_ + 1) > cells_.size()) Grow();
  }

  /// Enters a number that isn't there. Never fails.
  void Add(std::uint32_t hash, std::uint32_t number) {
    Put({hash, number});
    ++count_;
  }

 private:
  struct Cell {
    std::uint32_t hash = 0;
    std::uint32_t number = none;  // while the cell is free
  };

  std::size_t First(std::uint32_t hash) const { return hash & (cells_.size() - 1); }
  std::size_t Next(std::size_t at) const { return (at + 1) & (cells_.size() - 1); }

  void Put(const Cell& cell) {
    std::size_t at = First(cell.hash);
    while (cells_[at].number != none) at = Next(at);
    cells_[at] = cell;
  }

  void Grow() {
    const std::vector<Cell> old = std::exchange(cells_, std::vector<Cell>(2 * cells_.size()));
    for (const Cell& cell : old) {
      if (cell.number != none) Put(cell);
    }
  }

  // Open addressing: the size is a power of two, and at least half of the cells are free.
  std::vector<Cell> cells_;
  std::size_t count_ = 0;
};

}  // namespace model
