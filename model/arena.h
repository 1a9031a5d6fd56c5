// Memory that is handed out in small pieces and freed as a whole.
//
// A model makes millions of small things that live exactly as long as the model, so nothing is
// spent on freeing them one by one. Not for objects with destructors: none is ever run.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace model {

/// Hands out memory piece after piece.
class Arena {
 public:
  /// Uninitialised memory. It is aligned to 8 bytes as long as every size asked for is a multiple
  /// of 8. Valid as long as the arena.
  void* Allocate(std::size_t bytes) {
    if (bytes > left_) return AllocateInNewChunk(bytes);
    left_ -= bytes;
    return std::exchange(next_, next_ + bytes);
  }

  /// A copy of the text that stays valid as long as the arena.
  std::string_view Copy(std::string_view text);

 private:
  void* AllocateInNewChunk(std::size_t bytes);

  std::vector<std::unique_ptr<std::byte[]>> chunks_;
  std::byte* next_ = nullptr;
  std::size_t left_ = 0;
};

/// Hands out memory for arrays that grow, and hands out again what they leave behind.
class ArrayArena {
 public:
  /// Uninitialised memory, aligned to 8 bytes. `bytes` is a multiple of 8, and above 128 a power
  /// of two.
  void* Allocate(std::size_t bytes);

  /// Gives back memory that was allocated with the same size. Null is left alone.
  void Release(void* memory, std::size_t bytes);

 private:
  struct Free {
    Free* next;
  };

  Free*& FreeOf(std::size_t bytes);

  Arena arena_;
  std::array<Free*, 80> free_{};
};

}  // namespace model
