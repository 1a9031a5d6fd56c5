#include "command/staging.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include "command/directory_lock.h"
#include "command/failure.h"

namespace command {
namespace {

namespace fs = std::filesystem;

const std::string namePrefix = ".idlexport-";

/// Takes the lock by which others see that the directory is in use; returns its file descriptor,
/// or -1 when somebody has the lock.
int Lock(const fs::path& directory) {
  const int file = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file >= 0 && flock(file, LOCK_EX | LOCK_NB) != 0) {
    close(file);
    return -1;
  }
  return file;
}

/// Removes what a run left behind that could not tidy up.
void RemoveAbandoned(const fs::path& parent) {
  std::error_code error;
  std::vector<fs::path> found;
  for (fs::directory_iterator at(parent, error), end; !error && at != end; at.increment(error)) {
    if (at->path().filename().string().starts_with(namePrefix)) found.push_back(at->path());
  }
  for (const fs::path& directory : found) {
    const int lock = Lock(directory);
    if (lock < 0) continue;
    fs::remove_all(directory, error);
    close(lock);
  }
}

fs::path MakeIn(const fs::path& parent, const std::string& prefix) {
  std::string name = (parent / (prefix + "XXXXXX")).string();
  if (mkdtemp(name.data()) == nullptr) {
    throw Failure(kExportFailed,
                  "can't write to the directory '" + parent.string() + "': " + strerror(errno));
  }
  return fs::absolute(name);
}

/// The output directory, or the nearest above it that exists.
fs::path ExistingDirectory(const fs::path& output) {
  std::error_code error;
  fs::path at = fs::weakly_canonical(fs::absolute(output), error);
  if (error) at = fs::absolute(output);
  while (!fs::exists(fs::symlink_status(at, error)) && at.has_relative_path()) {
    at = at.parent_path();
  }
  if (!fs::is_directory(at, error)) {
    throw Failure(kExportFailed, "can't make the directory '" + output.string() + "': '" +
                                     at.string() + "' is not a directory");
  }
  return at;
}

}  // namespace

Staging Staging::For(const fs::path& output) {
  const fs::path parent = ExistingDirectory(output);
  const DirectoryLock untilItIsInUse(parent);
  RemoveAbandoned(parent);
  return {parent, namePrefix};
}

Staging Staging::ForNothing() { return {fs::temp_directory_path(), "idlexport-"}; }

Staging::Staging(const fs::path& parent, const std::string& namePrefix) {
  const Uninterrupted untilItIsKnown;
  path_ = MakeIn(parent, namePrefix);
  lock_ = Lock(path_);
  removal_.emplace(path_);
}

Staging::~Staging() {
  std::error_code error;
  fs::remove_all(path_, error);
  if (lock_ >= 0) close(lock_);
}

std::vector<std::string> Staging::Files() const {
  std::vector<std::string> files;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path_)) {
    if (entry.is_regular_file()) {
      files.push_back(entry.path().lexically_relative(path_).generic_string());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace command
