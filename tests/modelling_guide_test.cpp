// The guide to modelling: it shows what its example models give now, and all of them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <string>

#include "tests/support/file_tree.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;
using support::ProcessResult;

const fs::path sourceDirectory = IDLEXPORT_SOURCE_DIR;

TEST(ModellingGuide, ShowsWhatTheExamplesGive) {
  const support::ScratchDirectory scratch;
  const fs::path made = scratch.Path() / "modelling.md";
  setenv("IDLEXPORT_COMMAND", IDLEXPORT_COMMAND, 1);
  const ProcessResult result =
      support::RunProcess({(sourceDirectory / "scripts/make-docs").string(), made.string()});
  ASSERT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(support::ReadFile(made), support::ReadFile(sourceDirectory / "docs/modelling.md"))
      << "run scripts/make-docs";
}

TEST(ModellingGuide, ShowsEveryExample) {
  const std::string guide = support::ReadFile(sourceDirectory / "docs/modelling.md.in");
  for (const auto& example : fs::directory_iterator(sourceDirectory / "examples/modelling")) {
    const std::regex directive("(^|\n)@(file|example) " + example.path().stem().string() + "\n");
    EXPECT_TRUE(std::regex_search(guide, directive)) << example.path();
  }
}

TEST(ModellingGuide, ShowsEveryStereotypeOfTheProfile) {
  const std::string guide = support::ReadFile(sourceDirectory / "docs/modelling.md");
  const std::string profile = support::ReadFile(sourceDirectory / "profile/CORBA.profile.uml");
  const std::regex stereotype("xmi:type=\"uml:Stereotype\"[^>]* name=\"(\\w+)\"");
  int count = 0;
  for (std::sregex_iterator each(profile.begin(), profile.end(), stereotype), end; each != end;
       ++each, ++count) {
    // Not for users: the base of all, what the export itself applies, and what gives no IDL.
    const std::string name = (*each)[1];
    if (name == "CORBA" || name == "Node" || name == "CORBAArtifact") continue;
    EXPECT_NE(guide.find("<CORBA:" + name + " "), std::string::npos) << name;
  }
  EXPECT_GT(count, 20);
}

}  // namespace
