// The files that the export of one artifact made, before they are put in place.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "placement/staging.h"

namespace placement {

struct StagedExport {
  Staging staging;
  /// How the manifest names the artifact.
  std::string artifact;
  /// Where the files are to go; it need not exist.
  std::filesystem::path output;
  /// The paths of the files below the staging directory, and later below `output`.
  std::vector<std::string> files;

  std::filesystem::path Staged(const std::string& file) const { return staging.Path() / file; }
  std::filesystem::path Final(const std::string& file) const {
    return (output / file).lexically_normal();
  }
};

}  // namespace placement
