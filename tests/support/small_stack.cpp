#include "tests/support/small_stack.h"

#include <pthread.h>

#include <stdexcept>

namespace support {

namespace {

#ifdef __OPTIMIZE__
constexpr std::size_t stackSize = 256 * 1024;
#else
constexpr std::size_t stackSize = 2 * 1024 * 1024;  // unoptimised frames are large
#endif

void* Call(void* run) {
  (*static_cast<const std::function<void()>*>(run))();
  return nullptr;
}

}  // namespace

void OnSmallStack(const std::function<void()>& run) {
  pthread_attr_t attributes;
  pthread_t thread;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, stackSize);
  const int failed =
      pthread_create(&thread, &attributes, Call, const_cast<std::function<void()>*>(&run));
  pthread_attr_destroy(&attributes);
  if (failed != 0) throw std::runtime_error("can't make a thread");
  pthread_join(thread, nullptr);
}

}  // namespace support
