// Files and directories for tests: a scratch directory, whole files, whole trees.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace support {

/// A new empty directory that goes away with the object.
class ScratchDirectory {
 public:
  ScratchDirectory();
  ~ScratchDirectory();
  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// The whole text of a file. Throws when it can't be read.
std::string ReadFile(const std::filesystem::path& file);

/// Writes a file and makes the directories that it needs.
void WriteFile(const std::filesystem::path& file, std::string_view text);

/// The text of every file below a directory, by its path relative to the directory.
std::map<std::string, std::string> ReadTree(const std::filesystem::path& directory);

/// A copy of `text` with every `from` replaced by `to`.
std::string Replaced(std::string text, std::string_view from, std::string_view to);

}  // namespace support
