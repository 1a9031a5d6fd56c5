#include "placement/pruning.h"

#include <algorithm>
#include <system_error>

#include "placement/failure.h"

namespace placement {
namespace {

namespace fs = std::filesystem;

/// A link on the way may lead elsewhere.
bool IsBelow(const fs::path& directory, const fs::path& file) {
  const fs::path top = Canonical(directory);
  const fs::path parent = Canonical(file.parent_path());
  return std::mismatch(top.begin(), top.end(), parent.begin(), parent.end()).first == top.end();
}

}  // namespace

std::set<std::string> StaleFiles(const Manifest& manifest, const StagedExport& exported,
                                 const std::set<fs::path>& made) {
  std::set<std::string> stale;
  for (const std::string& file : manifest.FilesOf(exported.artifact)) {
    std::error_code error;
    const fs::path path = exported.output / file;
    if (made.contains(Canonical(path))) continue;
    if (manifest.IsOfAnother(exported.artifact, file)) continue;
    if (fs::is_regular_file(path, error) && IsBelow(exported.output, path)) stale.insert(file);
  }
  return stale;
}

void RemoveStale(const StagedExport& exported, const std::string& file) {
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

}  // namespace placement
