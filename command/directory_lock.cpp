#include "command/directory_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace command {

DirectoryLock::DirectoryLock(const std::filesystem::path& directory)
    : file_(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (file_ >= 0) flock(file_, LOCK_EX);
}

DirectoryLock::~DirectoryLock() {
  if (file_ >= 0) close(file_);
}

}  // namespace command
