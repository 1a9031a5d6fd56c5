// The Debian package: what it says of itself, and that its content works.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/file_tree.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;
using support::ProcessResult;
using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;

fs::path Pack(const fs::path& directory) {
  const ProcessResult packed =
      support::RunProcess({IDLEXPORT_CPACK, "--config", IDLEXPORT_BINARY_DIR "/CPackConfig.cmake",
                           "-B", directory.string()});
  EXPECT_EQ(packed.status, 0) << packed.output << packed.errors;
  for (const auto& entry : fs::directory_iterator(directory)) {
    if (entry.path().extension() == ".deb") return entry.path();
  }
  return {};
}

TEST(DebianPackage, HoldsAWorkingCommand) {
  const support::ScratchDirectory scratch;
  const fs::path package = Pack(scratch.Path() / "made");
  ASSERT_FALSE(package.empty());

  const ProcessResult about = support::RunProcess({"dpkg-deb", "--info", package.string()});
  EXPECT_THAT(about.output, AllOf(HasSubstr("Package: idlexport\n"), HasSubstr("Section: devel\n"),
                                  ContainsRegex("Depends: .*libc6")));
  const fs::path root = scratch.Path() / "root";
  ASSERT_EQ(support::RunProcess({"dpkg-deb", "-x", package.string(), root.string()}).status, 0);
  const ProcessResult exported =
      support::RunProcess({(root / "usr/bin/idlexport").string(), "-a", "one_file",
                           (root / "usr/share/idlexport/examples/bank.uml").string()},
                          scratch.Path());
  EXPECT_EQ(exported.status, 0) << exported.output << exported.errors;
  EXPECT_THAT(support::ReadFile(scratch.Path() / "idl/one_file/bank.idl"),
              HasSubstr("module Money {"));
}

}  // namespace
