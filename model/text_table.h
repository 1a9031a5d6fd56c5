// Numbers texts in the order in which they come, and finds the number of a text again.
//
// Every question that the agent asks names a property or an expression by its text, so looking one
// up allocates nothing and compares the whole text once, as a rule. Texts are never removed.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "model/arena.h"

namespace model {

class TextTable {
 public:
  TextTable();

  /// The number of a text that is in the table; nothing otherwise.
  std::optional<std::uint32_t> Find(std::string_view text) const;

  /// The number of a text, which is entered when it is new. Numbers count from 0.
  std::uint32_t Enter(std::string_view text);

  /// The text of a number. Valid as long as the table.
  std::string_view Text(std::uint32_t number) const { return texts_[number]; }

 private:
  struct Cell {
    std::uint32_t hash = 0;
    std::uint32_t number = free;
  };
  static constexpr std::uint32_t free = UINT32_MAX;

  std::size_t Place(std::string_view text, std::uint32_t hash) const;
  void Grow();

  // Open addressing: the size is a power of two, and at least half of the cells are free.
  std::vector<Cell> cells_;
  std::vector<std::string_view> texts_;
  Arena arena_;
};

}  // namespace model
