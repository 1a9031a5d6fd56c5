// Lists with separators.
#pragma once

#include <fstream>
#include <string_view>

namespace mdktoidl {

/// Writes each item with `write`, and ", " between two.
template <typename Items, typename Write>
void WriteSeparated(const Items& items, std::ofstream& out, Write write) {
  std::string_view separator;
  for (const auto& item : items) {
    out << separator;
    write(item);
    separator = ", ";
  }
}

/// Writes the items, texts, with ", " between two.
template <typename Texts>
void WriteSeparated(const Texts& texts, std::ofstream& out) {
  WriteSeparated(texts, out, [&out](std::string_view text) { out << text; });
}

}  // namespace mdktoidl
