// Generated files: their names, their directories, and the fixed text at their head and foot.
#pragma once

#include <string>

#include "options/path.h"
#include "output/layout.h"

namespace mdktoidl {

class File : public Path {
 public:
  /// Resolves a path that climbs with "../" against `base`, or against the artifact's directory
  /// when `base` is empty. A path that doesn't climb is only normalised. Always true.
  static bool AbsolutePath(std::string& path, std::string& base);

  /// Makes the directory and its parents. False when one can't be made; an existing one can.
  /// A path that begins with "/" deliberately always fails: its outermost parent is the empty text.
  /// Files can be opened there all the same, if the directory exists.
  static bool CreateSubDir(const std::string& path);

  /// Makes the directory that `AbsolutePath` gives for `path`, and sets `path` to it.
  static bool CreateDir(std::string& path);

  /// The file name of a declaration: with the export's suffix and ".idl".
  static std::string CreateFileName(const std::string& name);

  /// The include guard of a file name.
  static std::string GetFileProtectionName(std::string fileName);

  /// Opens a file below the root directory and writes its head. When it can't be opened, says so to
  /// the user and returns false.
  static bool Open(const std::string& fileName, Writer& out);

  /// Writes the foot and closes. A file that is not open is left alone.
  static void Close(Writer& out);
};

}  // namespace mdktoidl
