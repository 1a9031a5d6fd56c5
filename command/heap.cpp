#include "command/heap.h"

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace command {
namespace {

constexpr std::size_t kSmallest = std::size_t{1} << 20;
constexpr std::size_t kLargePage = std::size_t{2} << 20;
constexpr std::size_t kHeapPerFile = 4;  // what a run takes at most, by the size of its file

}  // namespace

// All memory comes from the one heap, and none of it goes back before the end. The heap is made to
// grow once, to what will be needed; memory that is never touched is never handed out.
void PrepareHeap(const std::filesystem::path& file) {
  std::error_code unknown;
  const std::uintmax_t fileSize = std::filesystem::file_size(file, unknown);
  if (unknown || fileSize < kSmallest) return;
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, -1);
  const std::size_t size = kHeapPerFile * fileSize;
  const auto start = reinterpret_cast<std::uintptr_t>(sbrk(0));
  void* volatile reserved = std::malloc(size);  // volatile, or else the compiler leaves it out
  std::free(reserved);
  const auto end = reinterpret_cast<std::uintptr_t>(sbrk(0));
  const std::uintptr_t aligned = (start + kLargePage - 1) / kLargePage * kLargePage;
  if (aligned >= end) return;
  madvise(reinterpret_cast<void*>(aligned), end - aligned, MADV_HUGEPAGE);
}

}  // namespace command
