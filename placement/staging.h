// A directory of its own for the files that an export makes, until it is clear that it succeeded.
//
// It goes away with the object, when the command is interrupted, or else, after a crash, with the
// next export to the same place.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "placement/interruption.h"

namespace placement {

/// The absolute path without links and dots, as far as that can be found out.
std::filesystem::path Canonical(const std::filesystem::path& path);

class Staging {
 public:
  /// Makes a directory on the file system of the output directory, so that each file can be put in
  /// place by renaming it. Throws `Failure` when it can't be made.
  static Staging For(const std::filesystem::path& output);
  /// Makes a directory for files that will not be put in place. Throws `Failure` likewise.
  static Staging ForNothing();
  ~Staging();
  Staging(const Staging&) = delete;
  Staging& operator=(const Staging&) = delete;

  /// An absolute path.
  const std::filesystem::path& Path() const { return path_; }

  /// The files in it, by their paths relative to it, in alphabetical order.
  std::vector<std::string> Files() const;

 private:
  Staging(const std::filesystem::path& parent, const std::string& namePrefix);

  std::filesystem::path path_;
  int lock_ = -1;
  std::optional<RemovedOnInterruption> removal_;
};

/// The files that the export of one artifact made, before they are put in place.
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
