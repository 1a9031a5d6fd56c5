// Lists with separators.
#pragma once

#include <fstream>
#include <string_view>

#include "output/layout.h"

namespace mdktoidl {

/// Writes each item with `write`, and ", " between two, to a stream or a line of it.
template <typename Items, typename Out, typename Writer>
void WriteSeparated(const Items& items, Out& out, Writer write) {
  bool isFirst = true;
  for (const auto& item : items) {
    if (!isFirst) Write(out, {", "});
    write(item);
    isFirst = false;
  }
}

/// Writes the items, texts, with ", " between two.
template <typename Texts>
void WriteSeparated(const Texts& texts, std::ofstream& out) {
  WriteSeparated(texts, out, [&out](std::string_view text) { Write(out, {text}); });
}

}  // namespace mdktoidl
