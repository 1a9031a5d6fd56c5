// Puts the files of successful exports in place.
#pragma once

#include <cstddef>
#include <set>
#include <string>

#include "command/staged_export.h"

namespace command {

struct PlacedFiles {
  std::size_t written = 0;
  std::size_t unchanged = 0;
  std::size_t removed = 0;
};

/// The files that an earlier export of the artifact put there, that this one doesn't make and no
/// other artifact does.
std::set<std::string> StaleFiles(const StagedExport& exported);

/// True when the files hold the same bytes; false also when one can't be read.
bool SameBytes(const std::filesystem::path& left, const std::filesystem::path& right);

/// Puts each file whose bytes changed in place by renaming it, and leaves the others as they are.
/// With `prune` removes the stale ones. Keeps the manifest. Throws `Failure`; what can be checked
/// before the first file is replaced, is.
PlacedFiles PutInPlace(const StagedExport& exported, bool prune);

}  // namespace command
