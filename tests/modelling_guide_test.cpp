// The guide to modelling: it shows what its example models give now, and compilers accept that.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/component_grammar.h"
#include "tests/support/file_tree.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;
using support::ProcessResult;

const fs::path sourceDirectory = IDLEXPORT_SOURCE_DIR;
const fs::path exampleDirectory = sourceDirectory / "examples/modelling";

std::vector<fs::path> Examples() {
  std::vector<fs::path> examples;
  for (const auto& entry : fs::directory_iterator(exampleDirectory)) {
    examples.push_back(entry.path());
  }
  std::sort(examples.begin(), examples.end());
  return examples;
}

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
  for (const fs::path& example : Examples()) {
    const std::regex directive("(^|\n)@(file|example) " + example.stem().string() + "\n");
    EXPECT_TRUE(std::regex_search(guide, directive)) << example;
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

class ModellingExample : public testing::TestWithParam<fs::path> {};

/// A compiler accepts the files in the directory, or the grammar does where it knows too little.
void ExpectSoundIdl(const fs::path& directory) {
  support::WriteFile(directory / "orb.idl", "");
  for (const auto& [file, text] : support::ReadTree(directory)) {
    if (!file.ends_with(".idl")) continue;
    EXPECT_EQ(support::GrammarFault(text), "") << file;
    // The compiler doesn't know components.
    if (std::regex_search(text, std::regex("\n *(component|eventtype) "))) continue;
    const ProcessResult judged = support::RunProcess(
        {IDLEXPORT_OMNIIDL, "-I" + directory.string(), (directory / file).string()});
    EXPECT_EQ(judged.status, 0) << file << ":\n" << text << judged.errors;
  }
}

TEST_P(ModellingExample, GivesSoundIdl) {
  const support::ScratchDirectory scratch;
  const std::string model = GetParam().string();
  const ProcessResult listed = support::RunProcess({IDLEXPORT_COMMAND, "--list", model});
  std::istringstream artifacts(listed.output);
  int count = 0;
  for (std::string artifact; std::getline(artifacts, artifact); ++count) {
    const std::string output = (scratch.Path() / artifact).string();
    const ProcessResult result =
        support::RunProcess({IDLEXPORT_COMMAND, "-a", artifact, "-o", output, model});
    ASSERT_EQ(result.status, 0) << result.output;
    EXPECT_EQ(result.errors.find("warning"), std::string::npos) << result.errors;
    ExpectSoundIdl(output);
  }
  EXPECT_GT(count, 0);
}

INSTANTIATE_TEST_SUITE_P(All, ModellingExample, testing::ValuesIn(Examples()),
                         [](const auto& info) { return info.param.stem().string(); });

}  // namespace
