// What earlier exports put in place and nothing makes any more.
#pragma once

#include <filesystem>
#include <set>
#include <string>

#include "placement/manifest.h"
#include "placement/staging.h"

namespace placement {

/// The files that an earlier export of the artifact put there, that are not among those made now
/// (by their full paths) and that no other artifact makes, by their paths below the output
/// directory. Never one outside that directory, whatever the manifest says.
std::set<std::string> StaleFiles(const Manifest& manifest, const StagedExport& exported,
                                 const std::set<std::filesystem::path>& made);

/// Removes a file, and the directories that are empty without it. Throws `Failure`.
void RemoveStale(const StagedExport& exported, const std::string& file);

}  // namespace placement
