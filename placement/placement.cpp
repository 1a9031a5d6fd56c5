#include "placement/placement.h"

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "placement/directory_lock.h"
#include "placement/failure.h"
#include "placement/interruption.h"
#include "placement/manifest.h"
#include "placement/pruning.h"
#include "placement/whole_file.h"

namespace placement {
namespace {

namespace fs = std::filesystem;

constexpr std::streamsize kBlock = 1 << 16;

std::optional<std::string> Bytes(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void MakeDirectory(const fs::path& directory) {
  std::error_code error;
  fs::create_directories(directory, error);
  if (error) {
    throw Failure(kExportFailed,
                  "can't make the directory '" + directory.string() + "': " + error.message());
  }
}

void CheckReplaceable(const fs::path& file) {
  std::error_code error;
  if (fs::is_directory(file, error)) {
    throw Failure(kExportFailed, "can't write '" + file.string() + "': is a directory");
  }
}

/// Replaces several files, all of them or none.
class Replacement {
 public:
  Replacement() = default;
  /// Puts everything back as it was, unless it was kept.
  ~Replacement();
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  /// Gives a file a name that another may have now; `kept` is a free name on the same file system
  /// where the other stays meanwhile. Throws `Failure`.
  void Replace(const fs::path& file, const fs::path& name, const fs::path& kept);

  void Keep() { steps_.clear(); }

 private:
  struct Step {
    fs::path name;
    fs::path before;  // empty when there was nothing of the name
  };

  std::vector<Step> steps_;
};

Replacement::~Replacement() {
  std::error_code error;
  for (auto step = steps_.rbegin(); step != steps_.rend(); ++step) {
    if (step->before.empty()) {
      fs::remove(step->name, error);
    } else {
      fs::rename(step->before, step->name, error);
    }
  }
}

void Replacement::Replace(const fs::path& file, const fs::path& name, const fs::path& kept) {
  std::error_code error;
  const bool isThere = fs::exists(fs::symlink_status(name, error));
  if (isThere) {
    fs::create_hard_link(name, kept, error);
    if (error) fs::copy(name, kept, fs::copy_options::copy_symlinks, error);
  }
  if (!isThere || !error) fs::rename(file, name, error);
  if (error) {
    throw Failure(kExportFailed, "can't write '" + name.string() + "': " + error.message());
  }
  steps_.push_back({name, isThere ? kept : fs::path()});
}

/// The files to replace, of all exports; a file that several make is one. Makes the directories
/// that they need.
class Changes {
 public:
  struct Change {
    fs::path staged;
    fs::path final;
    fs::path kept;
  };

  explicit Changes(const StagedExports& exports) {
    for (const auto& exported : exports) Add(*exported);
  }

  const std::vector<Change>& All() const { return changes_; }
  /// The full paths of all files, changed or not.
  const std::set<fs::path>& Made() const { return made_; }

 private:
  void Add(const StagedExport& exported) {
    CheckReplaceable(exported.output / Manifest::kFileName);
    for (const std::string& file : exported.files) {
      const fs::path final = exported.Final(file);
      CheckReplaceable(final);
      if (!made_.insert(Canonical(final)).second) continue;
      if (SameBytes(exported.Staged(file), final)) continue;
      MakeDirectory(exported.output / fs::path(file).parent_path());
      const std::string number = std::to_string(changes_.size());
      changes_.push_back({exported.Staged(file), final, exported.Staged(".before-" + number)});
    }
  }

  std::vector<Change> changes_;
  std::set<fs::path> made_;
};

/// Notes what is the artifact's: what it makes now and, unless that was removed, what it made
/// earlier and is still there.
void KeepManifest(const StagedExport& exported, bool isPruned) {
  Manifest manifest(exported.output);
  std::set<std::string> files(exported.files.begin(), exported.files.end());
  for (const std::string& file : manifest.FilesOf(exported.artifact)) {
    std::error_code error;
    if (!isPruned && fs::exists(exported.output / file, error)) files.insert(file);
  }
  manifest.Set(exported.artifact, std::move(files));
  const fs::path file = exported.output / Manifest::kFileName;
  if (Bytes(file) != manifest.Text()) WriteWhole(file, manifest.Text());
}

std::size_t Prune(const StagedExports& exports, const std::set<fs::path>& made) {
  std::size_t removed = 0;
  for (const auto& exported : exports) {
    const Manifest manifest(exported->output);
    for (const std::string& file : StaleFiles(manifest, *exported, made)) {
      RemoveStale(*exported, file);
      ++removed;
    }
    KeepManifest(*exported, true);
  }
  return removed;
}

/// The locks on all output directories, taken in an order that is the same for everybody.
std::vector<std::unique_ptr<DirectoryLock>> LockAll(const StagedExports& exports) {
  std::set<fs::path> directories;
  for (const auto& exported : exports) {
    MakeDirectory(exported->output);
    directories.insert(Canonical(exported->output));
  }
  std::vector<std::unique_ptr<DirectoryLock>> locks;
  for (const fs::path& directory : directories) {
    locks.push_back(std::make_unique<DirectoryLock>(directory));
  }
  return locks;
}

}  // namespace

bool SameBytes(const fs::path& left, const fs::path& right) {
  std::error_code error;
  const auto size = fs::file_size(left, error);
  if (error || fs::file_size(right, error) != size || error) return false;
  std::ifstream files[] = {std::ifstream(left, std::ios::binary),
                           std::ifstream(right, std::ios::binary)};
  std::vector<char> blocks[] = {std::vector<char>(kBlock), std::vector<char>(kBlock)};
  for (std::uintmax_t compared = 0; compared < size; compared += kBlock) {
    for (int side : {0, 1}) files[side].read(blocks[side].data(), kBlock);
    const std::streamsize count = files[0].gcount();
    if (count == 0 || count != files[1].gcount()) return false;
    if (std::memcmp(blocks[0].data(), blocks[1].data(), static_cast<std::size_t>(count)) != 0) {
      return false;
    }
  }
  return true;
}

void CheckForConflicts(const StagedExports& exports) {
  std::map<fs::path, fs::path> staged;
  for (const auto& exported : exports) {
    for (const std::string& file : exported->files) {
      const auto [first, isFirst] =
          staged.emplace(Canonical(exported->Final(file)), exported->Staged(file));
      if (isFirst || SameBytes(first->second, exported->Staged(file))) continue;
      throw Failure(kExportFailed, "several of the artifacts make '" +
                                       exported->Final(file).string() + "', and differently");
    }
  }
}

PlacedFiles PutInPlace(const StagedExports& exports, bool prune) {
  const auto locks = LockAll(exports);
  const Uninterrupted together;
  const Changes changes(exports);
  Replacement replacement;
  // Before the files, so that a run that is killed now leaves none that nobody knows of.
  for (const auto& exported : exports) KeepManifest(*exported, false);
  for (const Changes::Change& change : changes.All()) {
    replacement.Replace(change.staged, change.final, change.kept);
  }
  replacement.Keep();
  const std::size_t written = changes.All().size();
  const std::size_t removed = prune ? Prune(exports, changes.Made()) : 0;
  return {written, changes.Made().size() - written, removed};
}

}  // namespace placement
