// What the tests of the built command share: a directory of their own to run it in.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/file_tree.h"
#include "tests/support/process.h"

namespace support {

class CommandBench : public testing::Test {
 protected:
  ProcessResult Run(std::vector<std::string> arguments,
                    OutputKind outputKind = OutputKind::kCaptured) const {
    arguments.insert(arguments.begin(), IDLEXPORT_COMMAND);
    return RunProcess(arguments, Directory(), outputKind);
  }

  /// Runs a line of the shell in which "COMMAND" stands for the command.
  ProcessResult RunInShell(const std::string& script) const {
    return RunProcess({"sh", "-c", Replaced(script, "COMMAND", IDLEXPORT_COMMAND)}, Directory());
  }

  /// The text of a file of the sources, or of those for these tests.
  static std::string Source(const std::string& file) {
    return ReadFile(std::string(IDLEXPORT_SOURCE_DIR "/") + file);
  }
  static std::string Data(const std::string& name) { return Source("tests/data/command/" + name); }

  const std::filesystem::path& Directory() const { return scratch_.Path(); }
  bool Exists(const std::string& file) const { return std::filesystem::exists(Directory() / file); }
  std::string Text(const std::string& file) const { return ReadFile(Directory() / file); }
  void Write(const std::string& file, std::string_view text) const {
    WriteFile(Directory() / file, text);
  }
  void Remove(const std::string& file) const { std::filesystem::remove_all(Directory() / file); }

 private:
  ScratchDirectory scratch_;
};

}  // namespace support
