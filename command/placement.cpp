#include "command/placement.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>
#include <vector>

#include "command/directory_lock.h"
#include "command/failure.h"
#include "command/manifest.h"
#include "command/written_file.h"

namespace command {
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

/// The files to replace. Makes the directories that they need.
std::vector<std::string> PrepareChanged(const StagedExport& exported) {
  std::vector<std::string> changed;
  for (const std::string& file : exported.files) {
    const fs::path final = exported.Final(file);
    if (fs::is_directory(final)) {
      throw Failure(kExportFailed, "can't write '" + final.string() + "': is a directory");
    }
    if (SameBytes(exported.Staged(file), final)) continue;
    MakeDirectory(exported.output / fs::path(file).parent_path());
    changed.push_back(file);
  }
  return changed;
}

void Replace(const StagedExport& exported, const std::string& file) {
  std::error_code error;
  fs::rename(exported.Staged(file), exported.Final(file), error);
  if (error) {
    throw Failure(kExportFailed,
                  "can't write '" + exported.Final(file).string() + "': " + error.message());
  }
}

/// Removes a file, and the directories that are empty without it.
void Remove(const StagedExport& exported, const std::string& file) {
  std::error_code error;
  fs::remove(exported.Final(file), error);
  if (error) {
    throw Failure(kExportFailed,
                  "can't remove '" + exported.Final(file).string() + "': " + error.message());
  }
  for (fs::path at = fs::path(file).parent_path(); !at.empty(); at = at.parent_path()) {
    if (!fs::remove(exported.output / at, error)) return;
  }
}

/// What is known to be the artifact's from now on: with what it made earlier, as long as it is
/// there, so that it can be removed another time.
void KeepManifest(const StagedExport& exported, Manifest& manifest) {
  std::set<std::string> files(exported.files.begin(), exported.files.end());
  for (const std::string& file : manifest.FilesOf(exported.artifact)) {
    std::error_code error;
    if (fs::exists(exported.output / file, error)) files.insert(file);
  }
  manifest.Set(exported.artifact, std::move(files));
  const fs::path file = exported.output / Manifest::kFileName;
  if (Bytes(file) != manifest.Text()) WriteWhole(file, manifest.Text());
}

std::set<std::string> StaleIn(const Manifest& manifest, const StagedExport& exported) {
  std::set<std::string> stale;
  for (const std::string& file : manifest.FilesOf(exported.artifact)) {
    std::error_code error;
    const bool isMade = std::binary_search(exported.files.begin(), exported.files.end(), file);
    const bool isThere = fs::is_regular_file(exported.output / file, error);
    if (!isMade && isThere && !manifest.IsOfAnother(exported.artifact, file)) stale.insert(file);
  }
  return stale;
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

std::set<std::string> StaleFiles(const StagedExport& exported) {
  return StaleIn(Manifest(exported.output), exported);
}

PlacedFiles PutInPlace(const StagedExport& exported, bool prune) {
  const Uninterrupted together;
  MakeDirectory(exported.output);
  const DirectoryLock lock(exported.output);
  Manifest manifest(exported.output);
  const std::vector<std::string> changed = PrepareChanged(exported);
  for (const std::string& file : changed) Replace(exported, file);
  PlacedFiles placed{changed.size(), exported.files.size() - changed.size(), 0};
  if (prune) {
    for (const std::string& file : StaleIn(manifest, exported)) {
      Remove(exported, file);
      ++placed.removed;
    }
  }
  KeepManifest(exported, manifest);
  return placed;
}

}  // namespace command
