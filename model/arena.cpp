#include "model/arena.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>

namespace model {

namespace {

constexpr std::size_t smallestChunk = 4 * 1024;
constexpr std::size_t largestChunk = 1024 * 1024;

}  // namespace

void* Arena::AllocateInNewChunk(std::size_t bytes) {
  const std::size_t growing = smallestChunk << std::min<std::size_t>(chunks_.size(), 8);
  const std::size_t size = std::min(growing, largestChunk);
  // What is large gets a chunk of its own, so that the rest of the current one isn't lost.
  const bool alone = bytes > size / 4;
  chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(alone ? bytes : size));
  std::byte* chunk = chunks_.back().get();
  if (alone) return chunk;
  next_ = chunk + bytes;
  left_ = size - bytes;
  return chunk;
}

std::string_view Arena::Copy(std::string_view text) {
  if (text.empty()) return {};
  char* copy = static_cast<char*>(Allocate(text.size()));
  std::memcpy(copy, text.data(), text.size());
  return {copy, text.size()};
}

void* ArrayArena::Allocate(std::size_t bytes) {
  Free*& free = FreeOf(bytes);
  if (free == nullptr) return arena_.Allocate(bytes);
  return std::exchange(free, free->next);
}

void ArrayArena::Release(void* memory, std::size_t bytes) {
  if (memory == nullptr) return;
  Free*& free = FreeOf(bytes);
  free = new (memory) Free{free};
}

ArrayArena::Free*& ArrayArena::FreeOf(std::size_t bytes) {
  constexpr std::size_t smallSizes = 16;
  if (bytes <= smallSizes * 8) return free_[bytes / 8 - 1];
  return free_[smallSizes + std::bit_width(bytes) - 9];
}

}  // namespace model
