// Every example model, exported with each of its artifacts, gives IDL that a compiler accepts, and
// those at the top give the files kept in tests/golden. Of components, which the compiler doesn't
// know, the grammar is checked.
//
// tests/golden/MODEL/ARTIFACT/ holds the messages in "messages.txt" and the files in "files/".
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/component_grammar.h"
#include "tests/support/examples.h"
#include "tests/support/file_tree.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;
using Tree = std::map<std::string, std::string>;

const fs::path sourceDirectory = IDLEXPORT_SOURCE_DIR;
constexpr const char* updateHint =
    "if the change is meant: IDLEXPORT_UPDATE_GOLDENS=1 scripts/test -R Golden, then read the diff";

std::vector<std::string> ArtifactsOf(const fs::path& model) {
  const support::ProcessResult result =
      support::RunProcess({IDLEXPORT_COMMAND, "--list", model.string()});
  std::vector<std::string> artifacts;
  std::istringstream lines(result.output);
  for (std::string line; std::getline(lines, line);) artifacts.push_back(line);
  EXPECT_FALSE(artifacts.empty()) << result.errors;
  return artifacts;
}

/// What exporting the artifact yields, laid out as the goldens are.
Tree Export(const fs::path& model, const std::string& artifact,
            const std::vector<std::string>& options = {}) {
  const support::ScratchDirectory scratch;
  std::vector<std::string> command = {IDLEXPORT_COMMAND, "--artifact", artifact, model.string()};
  command.insert(command.end(), options.begin(), options.end());
  const support::ProcessResult result = support::RunProcess(command, scratch.Path());
  EXPECT_EQ(result.status, 0) << result.output;
  EXPECT_EQ(result.errors.find("warning"), std::string::npos) << result.errors;
  Tree tree = {{"messages.txt", result.output}};
  for (auto& [file, text] : support::ReadTree(scratch.Path())) {
    if (!file.ends_with(".idlexport")) tree["files/" + file] = text;
  }
  return tree;
}

void Update(const fs::path& golden, const Tree& tree) {
  fs::remove_all(golden);
  for (const auto& [file, text] : tree) support::WriteFile(golden / file, text);
}

void ExpectEqual(const Tree& expected, const Tree& actual) {
  for (const auto& [file, text] : actual) {
    EXPECT_TRUE(expected.contains(file)) << file << " is new; " << updateHint;
  }
  for (const auto& [file, text] : expected) {
    const auto found = actual.find(file);
    EXPECT_EQ(found == actual.end() ? "nothing" : found->second, text)
        << "in " << file << "; " << updateHint;
  }
}

/// A compiler accepts the exported files, or the grammar does where it knows too little.
void ExpectSoundIdl(const Tree& tree) {
  const support::ScratchDirectory scratch;
  fs::path main;  // the highest file, to which include lines are relative
  const auto depth = [](const fs::path& path) { return std::distance(path.begin(), path.end()); };
  for (const auto& [file, text] : tree) {
    support::WriteFile(scratch.Path() / file, text);
    if (file.ends_with(".idl") && (main.empty() || depth(file) < depth(main))) main = file;
  }
  const fs::path directory = scratch.Path() / main.parent_path();
  support::WriteFile(directory / "orb.idl", "");
  for (const auto& [file, text] : tree) {
    if (!file.ends_with(".idl")) continue;
    EXPECT_EQ(support::GrammarFault(text), "") << file;
    if (std::regex_search(text, std::regex("\n *(component|eventtype) "))) continue;
    const support::ProcessResult judged = support::RunProcess(
        {IDLEXPORT_OMNIIDL, "-I" + directory.string(), (scratch.Path() / file).string()});
    EXPECT_EQ(judged.status, 0) << file << ":\n" << text << judged.errors;
  }
}

class ExampleTest : public testing::TestWithParam<fs::path> {};

TEST_P(ExampleTest, GivesSoundIdl) {
  for (const std::string& artifact : ArtifactsOf(GetParam())) {
    ExpectSoundIdl(Export(GetParam(), artifact, {"--output", "out"}));
  }
}

INSTANTIATE_TEST_SUITE_P(Top, ExampleTest, testing::ValuesIn(support::ModelsIn("examples")),
                         support::NameOfModel());
INSTANTIATE_TEST_SUITE_P(Guide, ExampleTest,
                         testing::ValuesIn(support::ModelsIn("examples/modelling")),
                         support::NameOfModel());

class GoldenTest : public testing::TestWithParam<fs::path> {};

TEST_P(GoldenTest, ExampleGivesTheGoldenFiles) {
  for (const std::string& artifact : ArtifactsOf(GetParam())) {
    SCOPED_TRACE(artifact);
    const fs::path golden = sourceDirectory / "tests/golden" / GetParam().stem() /
                            support::Replaced(artifact, "::", ".");
    const Tree tree = Export(GetParam(), artifact);
    if (std::getenv("IDLEXPORT_UPDATE_GOLDENS") != nullptr) Update(golden, tree);
    ASSERT_TRUE(fs::is_directory(golden)) << "there is no " << golden << "; " << updateHint;
    ExpectEqual(support::ReadTree(golden), tree);
  }
}

INSTANTIATE_TEST_SUITE_P(Examples, GoldenTest, testing::ValuesIn(support::ModelsIn("examples")),
                         support::NameOfModel());

}  // namespace
