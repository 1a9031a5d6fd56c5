// Keeps several commands that export to one directory at the same time from disturbing each other.
#pragma once

#include <filesystem>

namespace command {

/// Waits for, and while it lives holds, the lock on a directory. Where the file system knows no
/// locks it does nothing.
class DirectoryLock {
 public:
  explicit DirectoryLock(const std::filesystem::path& directory);
  ~DirectoryLock();
  DirectoryLock(const DirectoryLock&) = delete;
  DirectoryLock& operator=(const DirectoryLock&) = delete;

 private:
  int file_ = -1;
};

}  // namespace command
