// The texts of paths: pure string work, "/" as the only separator, no look at the file system.
#pragma once

#include <string>

namespace mdktoidl {

class Path {
 public:
  /// Turns every "\" into "/" and every run of "/" into one.
  static void NormalizePath(std::string& path);

  /// Removes every "../", also those that a removal brings together; returns how many there were.
  static int EatDotDotSlashes(std::string& path);

  /// `count` times: cuts off the last "/" and what follows it, unless that "/" is the first
  /// character or there is none. A count below 1 does nothing.
  static void RemoveFileOrDir(std::string& path, int count);
};

}  // namespace mdktoidl
