// An installation of the build under test, for tests of what users get.
#pragma once

#include <filesystem>

#include "tests/support/file_tree.h"

namespace support {

/// Installs into a scratch directory and moves the whole to another place, so that nothing in it
/// can rely on where it was put. Fails the test when that doesn't work.
class Installation {
 public:
  Installation();

  const std::filesystem::path& Prefix() const { return prefix_; }
  std::filesystem::path Command() const { return prefix_ / "bin/idlexport"; }
  /// The file of that name somewhere below the prefix; empty when there is none.
  std::filesystem::path Find(const std::string& name) const;

 private:
  ScratchDirectory scratch_;
  std::filesystem::path prefix_ = scratch_.Path() / "moved";
};

}  // namespace support
