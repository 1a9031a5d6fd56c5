#include "placement/directory_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace placement {
namespace {

/// Longer than any of us needs it; who has it then is somebody else, such as a script that runs us
/// under a lock of its own on the directory.
constexpr std::chrono::milliseconds patience{5000};
constexpr std::chrono::milliseconds interval{10};

}  // namespace

DirectoryLock::DirectoryLock(const std::filesystem::path& directory)
    : file_(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (file_ < 0) return;
  const auto isHeldByOthers = [this] {
    return flock(file_, LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || errno == EINTR);
  };
  for (auto waited = interval; waited < patience && isHeldByOthers(); waited += interval) {
    std::this_thread::sleep_for(interval);
  }
}

DirectoryLock::~DirectoryLock() {
  if (file_ >= 0) close(file_);
}

}  // namespace placement
