#include "tests/support/installation.h"

#include <gtest/gtest.h>

#include "tests/support/process.h"

namespace support {

namespace fs = std::filesystem;

Installation::Installation() {
  const fs::path first = scratch_.Path() / "first";
  const ProcessResult result =
      RunProcess({IDLEXPORT_CMAKE, "--install", IDLEXPORT_BINARY_DIR, "--prefix", first.string()});
  EXPECT_EQ(result.status, 0) << result.output << result.errors;
  fs::rename(first, prefix_);
}

fs::path Installation::Find(const std::string& name) const {
  for (const auto& entry : fs::recursive_directory_iterator(prefix_)) {
    if (entry.path().filename() == name) return entry.path();
  }
  return {};
}

}  // namespace support
