// One property of an element: its name and what it holds, in 16 bytes.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "model/element.h"

namespace model {

struct Element::Slot {
  enum Kind : std::uint32_t { unset, text, entity, list };

  explicit Slot(Symbol name) : property(name.Id()), kind(unset) {}

  std::string_view Text() const { return {content.text, size}; }
  std::span<Element*> List() const { return {content.list, size}; }

  std::uint32_t property : 30;
  std::uint32_t kind : 2;
  std::uint32_t size = 0;  // of a text, in bytes, or of a list
  union {
    const char* text;
    Element* entity;
    Element** list;
  } content{};

  /// How many slots an element gets room for that is to have that many and has no room.
  static std::size_t SlotCapacity(std::size_t count) {
    return count <= 8 ? (count + 1) / 2 * 2 : std::bit_ceil(count);
  }

  /// How many elements a list with that many has room for.
  static std::size_t ListCapacity(std::size_t count) {
    return count == 0 ? 0 : std::bit_ceil(count);
  }
};

}  // namespace model
