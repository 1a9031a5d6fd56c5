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
#include "model/hash_index.h"

namespace model {

class TextTable {
 public:
  /// The number of a text that is in the table; nothing otherwise.
  std::optional<std::uint32_t> Find(std::string_view text) const;

  /// The number of a text, which is entered when it is new. Numbers count from 0.
  std::uint32_t Enter(std::string_view text);

  /// The text of a number. Valid as long as the table.
  std::string_view Text(std::uint32_t number) const { return texts_[number]; }

 private:
  std::uint32_t Find(std::string_view text, std::uint32_t hash) const;

  HashIndex index_;
  std::vector<std::string_view> texts_;
  Arena arena_;
};

}  // namespace model
