// How far a reading is, for whoever wants to show it meanwhile.
#pragma once

#include <atomic>
#include <cstddef>

namespace xmi {

/// Counts bytes of all files opened so far; `total` grows when a file refers to another one. May be
/// read from any thread.
struct ReadingProgress {
  std::atomic<std::size_t> done = 0;
  std::atomic<std::size_t> total = 0;
};

}  // namespace xmi
