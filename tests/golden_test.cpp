// Every example model, exported with each of its artifacts, gives the files kept in tests/golden,
// and an IDL compiler accepts them; for the one with components, which it doesn't know, the grammar
// does.
//
// tests/golden/MODEL/ARTIFACT/ holds the messages in "messages.txt" and the files in "files/".
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/component_grammar.h"
#include "tests/support/file_tree.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;
using Tree = std::map<std::string, std::string>;

const fs::path sourceDirectory = IDLEXPORT_SOURCE_DIR;
constexpr const char* updateHint =
    "if the change is meant: IDLEXPORT_UPDATE_GOLDENS=1 scripts/test -R Golden, then read the diff";

std::vector<fs::path> ExampleModels() {
  std::vector<fs::path> models;
  for (const auto& entry : fs::directory_iterator(sourceDirectory / "examples")) {
    if (entry.path().extension() == ".uml") models.push_back(entry.path());
  }
  std::sort(models.begin(), models.end());
  return models;
}

std::vector<std::string> ArtifactsOf(const fs::path& model) {
  const support::ProcessResult result =
      support::RunProcess({IDLEXPORT_COMMAND, "--list", model.string()});
  EXPECT_EQ(result.status, 0) << result.errors;
  std::vector<std::string> artifacts;
  std::istringstream lines(result.output);
  for (std::string line; std::getline(lines, line);) artifacts.push_back(line);
  return artifacts;
}

/// What exporting the artifact yields, laid out as the goldens are.
Tree Export(const fs::path& model, const std::string& artifact) {
  const support::ScratchDirectory scratch;
  const support::ProcessResult result = support::RunProcess(
      {IDLEXPORT_COMMAND, "--artifact", artifact, model.string()}, scratch.Path());
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
  for (const auto& [file, text] : expected) {
    const auto found = actual.find(file);
    if (found == actual.end()) {
      ADD_FAILURE() << file << " is no longer written; " << updateHint;
    } else {
      EXPECT_EQ(text, found->second) << "in " << file << "; " << updateHint;
    }
  }
  for (const auto& [file, text] : actual) {
    EXPECT_TRUE(expected.contains(file)) << file << " is new; " << updateHint;
  }
}

/// The directory that include lines start from: the one that holds the artifact's main file, which
/// is the highest that holds a file.
fs::path IncludeDirectory(const std::vector<fs::path>& files) {
  return std::min_element(files.begin(), files.end(),
                          [](const auto& left, const auto& right) {
                            return std::distance(left.begin(), left.end()) <
                                   std::distance(right.begin(), right.end());
                          })
      ->parent_path();
}

std::vector<fs::path> IdlFiles(const fs::path& golden) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(golden / "files")) {
    if (entry.path().extension() == ".idl") files.push_back(entry.path());
  }
  EXPECT_FALSE(files.empty());
  return files;
}

void ExpectObeysGrammar(const fs::path& golden) {
  for (const fs::path& file : IdlFiles(golden)) {
    EXPECT_EQ(support::GrammarFault(support::ReadFile(file)), "") << file;
  }
}

void ExpectAcceptedByCompiler(const fs::path& golden) {
  const std::vector<fs::path> files = IdlFiles(golden);
  if (files.empty()) return;
  const std::string include = "-I" + IncludeDirectory(files).string();
  for (const fs::path& file : files) {
    const support::ProcessResult result =
        support::RunProcess({IDLEXPORT_OMNIIDL, include, file.string()});
    EXPECT_EQ(result.status, 0) << file << ":\n" << result.errors;
  }
}

class GoldenTest : public testing::TestWithParam<fs::path> {};

TEST_P(GoldenTest, ExampleGivesTheGoldenFiles) {
  const std::vector<std::string> artifacts = ArtifactsOf(GetParam());
  ASSERT_FALSE(artifacts.empty());
  for (const std::string& artifact : artifacts) {
    SCOPED_TRACE(artifact);
    const fs::path golden = sourceDirectory / "tests/golden" / GetParam().stem() /
                            support::Replaced(artifact, "::", ".");
    const Tree tree = Export(GetParam(), artifact);
    if (std::getenv("IDLEXPORT_UPDATE_GOLDENS") != nullptr) Update(golden, tree);
    ASSERT_TRUE(fs::is_directory(golden)) << "there is no " << golden << "; " << updateHint;
    ExpectEqual(support::ReadTree(golden), tree);
    ExpectObeysGrammar(golden);
    if (GetParam().stem() != "dining") ExpectAcceptedByCompiler(golden);
  }
}

INSTANTIATE_TEST_SUITE_P(Examples, GoldenTest, testing::ValuesIn(ExampleModels()),
                         [](const auto& info) { return info.param.stem().string(); });

}  // namespace
