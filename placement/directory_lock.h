// Keeps several commands that export to one directory at the same time from disturbing each other.
#pragma once

#include <filesystem>

namespace placement {

/// Waits some seconds for the lock on a directory, and holds it while it lives. Goes on without it
/// when somebody keeps it, or the file system knows no locks.
class DirectoryLock {
 public:
  explicit DirectoryLock(const std::filesystem::path& directory);
  ~DirectoryLock();
  DirectoryLock(const DirectoryLock&) = delete;
  DirectoryLock& operator=(const DirectoryLock&) = delete;

 private:
  int file_ = -1;
};

}  // namespace placement
