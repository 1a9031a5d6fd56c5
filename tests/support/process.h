// Runs a program and keeps what it wrote, for tests of the built command.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace support {

/// What a program's standard output is.
enum class OutputKind {
  kCaptured,
  /// Not open at all.
  kClosed,
  /// A pipe that nobody reads from any more.
  kBrokenPipe,
  /// A device that has no room left.
  kFull,
};

struct ProcessResult {
  /// The exit status; 128 and the signal's number when a signal ended the program.
  int status = 0;
  std::string output;
  std::string errors;
};

/// Runs a program to its end with an empty standard input. `command` is the program's path, or its
/// name on the search path, and its arguments. An empty `directory` is the current one.
ProcessResult RunProcess(const std::vector<std::string>& command,
                         const std::filesystem::path& directory = {},
                         OutputKind outputKind = OutputKind::kCaptured);

/// A program that runs while the test goes on.
class RunningProcess {
 public:
  /// Starts it with its standard output going to `output`, a file descriptor, and its errors to
  /// nowhere.
  RunningProcess(const std::vector<std::string>& command, const std::filesystem::path& directory,
                 int output);

  /// Sends it a signal and waits for its end; returns its status as in `ProcessResult`.
  int EndBy(int signal) const;

 private:
  int process_ = 0;
};

}  // namespace support
