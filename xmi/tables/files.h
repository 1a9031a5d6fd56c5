// The files of one reading: the model file and those that it refers to.
//
// An `href` becomes a file and an id in it. Files are opened when they are first referred to, each
// once; only local files are ever opened. What can't be opened is a warning.
#pragma once

#include <map>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "xmi/tables/items.h"
#include "xmi/text/diagnostics.h"
#include "xmi/text/document.h"

namespace xmi {

/// Where an `href` leads.
struct Target {
  static constexpr FileIndex kNoFile = 0xFFFF;

  FileIndex file = kNoFile;  ///< `kNoFile` when it leads to nothing that can be read.
  std::string_view id;       ///< As it stands behind the "#".
};

class Files {
 public:
  explicit Files(Diagnostics& diagnostics) : diagnostics_(&diagnostics) {}

  struct File {
    std::unique_ptr<Document> document;
    std::vector<pugi::xml_node> extensions;                ///< Not yet read: a tool's own blocks.
    bool isLibrary = false;                                ///< The built-in library of types.
    std::unordered_map<std::string_view, Target> targets;  ///< The hrefs seen in it.
  };

  /// Addresses that begin with `prefix` are files below the directory. The longest prefix counts.
  void Map(const std::string& prefix, const std::string& directory);
  /// Opens the model file, the first one. Throws `ReadError`.
  void Open(const std::string& path);
  /// Follows an `href` of a file; `offset` is where it stands. The text is borrowed.
  Target Follow(FileIndex from, std::string_view href, std::uint32_t offset);

  FileIndex Size() const { return static_cast<FileIndex>(files_.size()); }
  File& operator[](FileIndex index) { return *files_[index]; }
  const File& operator[](FileIndex index) const { return *files_[index]; }
  /// The paths of all files but the built-in one, in the order in which they were opened.
  const std::vector<std::string>& Paths() const { return paths_; }

 private:
  Target Resolve(FileIndex from, std::string_view href, std::uint32_t offset);
  Target InLibrary(std::string_view id);
  FileIndex OpenReferred(FileIndex from, std::string_view address, std::uint32_t offset);
  std::string MappedPath(std::string_view address) const;
  FileIndex OpenPath(const std::string& path, const Location& location);
  FileIndex Add(std::unique_ptr<Document> document);

  Diagnostics* diagnostics_;
  std::vector<std::unique_ptr<File>> files_;
  std::vector<std::string> paths_;
  std::map<std::string, std::string> directories_;     // by the prefix of addresses
  std::unordered_map<std::string, FileIndex> byPath_;  // by canonical path
  std::unordered_set<std::string> notLocal_;           // addresses told of
  FileIndex library_ = Target::kNoFile;
};

}  // namespace xmi
