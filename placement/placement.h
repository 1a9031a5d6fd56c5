// Puts the files of successful exports in place.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <vector>

#include "placement/staging.h"

namespace placement {

struct PlacedFiles {
  std::size_t written = 0;
  std::size_t unchanged = 0;
  std::size_t removed = 0;
};

using StagedExports = std::vector<std::unique_ptr<StagedExport>>;

/// True when the files hold the same bytes; false also when one can't be read.
bool SameBytes(const std::filesystem::path& left, const std::filesystem::path& right);

/// Throws `Failure` when two exports make the same file, but differently.
void CheckForConflicts(const StagedExports& exports);

/// Puts each file whose bytes changed in place by renaming it, and leaves the others as they are.
/// With `prune` removes the stale ones. Keeps the manifests. Throws `Failure`; then the files of
/// all exports are as they were.
PlacedFiles PutInPlace(const StagedExports& exports, bool prune);

}  // namespace placement
