// What earlier exports put into an output directory: the file ".idlexport" there.
//
// It tells files that an artifact made earlier, and no longer makes, from those that others put
// there. Each line is an artifact and a file. An artifact is known by its model file's path from
// the directory and its xmi:id, so it may be renamed, and several may share a directory.
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace placement {

class Manifest {
 public:
  static constexpr const char* kFileName = ".idlexport";

  /// Reads the manifest of a directory; an empty one when there is none. Lines that say nothing,
  /// or name a file outside the directory, are passed over.
  explicit Manifest(const std::filesystem::path& directory);

  /// The files that the artifact is known to have made, by their paths below the directory.
  const std::set<std::string>& FilesOf(const std::string& artifact) const;
  /// True when another artifact makes the file.
  bool IsOfAnother(const std::string& artifact, const std::string& file) const;

  void Set(const std::string& artifact, std::set<std::string> files);

  /// The text of the file; the same for the same content.
  std::string Text() const;

 private:
  std::map<std::string, std::set<std::string>> files_;
};

}  // namespace placement
