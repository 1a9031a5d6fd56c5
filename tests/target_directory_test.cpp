// Where the files of an export go: every kind of directory, under every file mapping.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/file_tree.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAreArray;

/// A directory to export into. "ROOT" stands for the scratch directory's path, which holds the
/// model in "models/deep/m.uml" and the directory "work" that the command runs in.
struct TargetCase {
  std::string targetDir;
  /// The argument of --output; empty for none.
  std::string output;
  /// Where the files are to be, below the scratch directory.
  std::string expected;
};

void PrintTo(const TargetCase& target, std::ostream* out) {
  *out << "targetDir '" << target.targetDir << "', --output '" << target.output << "'";
}

const TargetCase cases[] = {
    // What the artifact says: plain paths from the current directory.
    {"idl", "", "work/idl"},
    {"./idl//deep/er/", "", "work/idl/deep/er"},
    {"back\\slash", "", "work/back/slash"},
    {"..hidden/a..", "", "work/..hidden/a.."},
    {".", "", "work"},
    // "../" from the model's directory.
    {"../idl", "", "models/idl"},
    {"../../idl/deep", "", "idl/deep"},
    {"..\\idl", "", "models/idl"},
    {"..", "", "models"},
    {"../", "", "models"},
    // Absolute ones, and none: beside the model.
    {"ROOT/idl/deep", "", "idl/deep"},
    {"", "", "models/deep/files"},
    // The command line has the last word, and its paths are ordinary ones.
    {"idl", "out", "work/out"},
    {"../idl", "out/deep/er", "work/out/deep/er"},
    {"ROOT/idl", ".", "work"},
    {"", "two words/-x", "work/two words/-x"},
    {"idl", "..", "."},
    {"idl", "x..", "work/x.."},
    {"idl", "../out/deep", "out/deep"},
    {"../idl", "new/../out", "work/out"},
    {"../idl", "x../out", "work/x../out"},
    {"idl", "back\\slash", "work/back\\slash"},
    {"../idl", "ROOT/out/deep", "out/deep"},
};

/// The files of each mapping, below the target directory.
const std::pair<std::string, std::vector<std::string>> mappings[] = {
    {"ONE_FILE", {"files.idl"}},
    {"MODULE_FLAT", {"files.idl", "M.idl", "M_N.idl"}},
    {"MODULE_STRUCTURED", {"files.idl", "M/M.idl", "M/N/N.idl"}},
};

/// The model file with the words in it replaced.
std::string ModelText(const std::string& targetDir, const std::string& mapping) {
  const std::string text = support::ReadFile(IDLEXPORT_SOURCE_DIR "/tests/data/command/target.uml");
  return support::Replaced(support::Replaced(text, "TARGET_DIR", targetDir), "FILE_MAPPING",
                           mapping);
}

/// Every file below the directory but for the model and the command's own.
std::vector<std::string> FilesBelow(const fs::path& directory) {
  std::vector<std::string> files;
  for (const auto& [file, text] : support::ReadTree(directory)) {
    if (!file.ends_with(".uml") && !file.ends_with(".idlexport")) files.push_back(file);
  }
  return files;
}

/// Exports the model, named by its path from the directory that the command runs in.
void Export(const std::string& model, const fs::path& directory, const std::string& output) {
  std::vector<std::string> command = {IDLEXPORT_COMMAND, model};
  if (!output.empty()) command.insert(command.end(), {"--output", output});
  const support::ProcessResult result = support::RunProcess(command, directory);
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.output, "\nIDL exporter started...\nIDL exporter finished.\n");
}

/// The paths of a mapping's files in the directory.
std::vector<std::string> Below(const fs::path& directory, const std::vector<std::string>& files) {
  std::vector<std::string> paths;
  for (const std::string& file : files) {
    paths.push_back((directory / file).lexically_normal().string());
  }
  return paths;
}

class TargetDirectoryTest : public testing::TestWithParam<TargetCase> {};

TEST_P(TargetDirectoryTest, HoldsTheFilesOfEveryMapping) {
  for (const auto& [mapping, files] : mappings) {
    SCOPED_TRACE(mapping);
    const support::ScratchDirectory scratch;
    const fs::path root = scratch.Path();
    const auto inRoot = [&](const std::string& path) {
      return support::Replaced(path, "ROOT", root.string());
    };
    support::WriteFile(root / "models/deep/m.uml",
                       ModelText(inRoot(GetParam().targetDir), mapping));
    fs::create_directory(root / "work");
    Export("../models/deep/m.uml", root / "work", inRoot(GetParam().output));
    EXPECT_THAT(FilesBelow(root), UnorderedElementsAreArray(Below(GetParam().expected, files)));
  }
}

INSTANTIATE_TEST_SUITE_P(Paths, TargetDirectoryTest, testing::ValuesIn(cases));

TEST(TargetDirectory, IsBesideTheModelHoweverTheModelIsNamed) {
  const auto& [mapping, files] = mappings[2];
  for (const std::string targetDir : {"", "../idl"}) {
    for (const std::string model : {"m.uml", "./m.uml", "../deep/m.uml", "ROOT/deep/m.uml"}) {
      SCOPED_TRACE("'" + targetDir + "' " + model);
      const support::ScratchDirectory scratch;
      const std::string root = scratch.Path().string();
      support::WriteFile(root + "/deep/m.uml", ModelText(targetDir, mapping));
      Export(support::Replaced(model, "ROOT", root), root + "/deep", "");
      EXPECT_THAT(FilesBelow(root), UnorderedElementsAreArray(
                                        Below(targetDir.empty() ? "deep/files" : "idl", files)));
    }
  }
}

}  // namespace
