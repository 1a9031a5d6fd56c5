// The command's standard output, with every write checked.
//
// Other programs read what goes out here, so it must be complete or the command must say that it is
// not. What the command itself has to say goes to standard error.
#pragma once

#include <string_view>

namespace command {

/// Opens the null device in place of each standard stream that the caller left closed. Otherwise an
/// output file could be given the number of a standard stream, and messages would end up in it.
void FillClosedStandardStreams();

/// Writes line by line, so that little is lost should the process die. One at a time.
class StandardOutput {
 public:
  /// From now on a reader that goes away, and a file that may not grow, are write errors, no longer
  /// signals.
  StandardOutput();

  /// Writes the text as it stands. After the first error nothing more is written.
  void Write(std::string_view text);

  /// Writes what is left; returns 0, or else the `errno` of the first write that failed.
  int Finish();

 private:
  int error_ = 0;
};

}  // namespace command
