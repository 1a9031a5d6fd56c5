#include "placement/staging.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <set>
#include <string_view>
#include <system_error>

#include "placement/directory_lock.h"
#include "placement/failure.h"

namespace placement {
namespace {

namespace fs = std::filesystem;

const std::string namePrefix = ".idlexport-staging-";
constexpr std::string_view temporaryPrefix = "idlexport-staging-";
constexpr std::chrono::hours longAgo{1};

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

/// Whether it is a directory that a run made for itself.
bool IsStaging(const fs::path& path, std::string_view prefix) {
  struct stat status {};
  return path.filename().string().starts_with(prefix) && lstat(path.c_str(), &status) == 0 &&
         S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
         (status.st_mode & ~static_cast<mode_t>(S_IFMT)) == S_IRWXU;
}

/// Removes what runs left behind that could not tidy up, as far as it is that old.
void RemoveAbandoned(const fs::path& parent, std::string_view prefix, std::chrono::hours age) {
  static std::set<fs::path> done;  // those of this run needn't be looked at again and again
  if (!done.insert(parent).second) return;
  std::error_code error;
  std::vector<fs::path> found;
  for (fs::directory_iterator at(parent, error), end; !error && at != end; at.increment(error)) {
    if (IsStaging(at->path(), prefix)) found.push_back(at->path());
  }
  for (const fs::path& directory : found) {
    const auto changed = fs::last_write_time(directory, error);
    if (error || fs::file_time_type::clock::now() - changed < age) continue;
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
  fs::path at = Canonical(output);
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

fs::path Canonical(const fs::path& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(path, error);
  const fs::path canonical = fs::weakly_canonical(error ? path : absolute, error);
  return error ? path : canonical;
}

Staging Staging::For(const fs::path& output) {
  const fs::path parent = ExistingDirectory(output);
  const DirectoryLock untilItIsInUse(parent);
  RemoveAbandoned(parent, namePrefix, std::chrono::hours(0));
  return {parent, namePrefix};
}

Staging Staging::ForNothing() {
  std::error_code error;
  const fs::path parent = fs::temp_directory_path(error);
  if (error) {
    throw Failure(kExportFailed, "there is no directory for temporary files: " + error.message());
  }
  // Nobody else waits for us there, so a directory that was just made might look abandoned.
  RemoveAbandoned(parent, temporaryPrefix, longAgo);
  return {parent, std::string(temporaryPrefix)};
}

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

}  // namespace placement
