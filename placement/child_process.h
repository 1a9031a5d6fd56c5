// Runs other programs, which the command needs for what they do better.
#pragma once

#include <string>
#include <vector>

namespace placement {

/// Runs a program to its end; `words` are its name, looked up on the search path, and its
/// arguments. It gets no input, and its standard output goes to `output`, a file descriptor.
/// Returns its exit status, 128 and more when a signal ended it, or an `errno` with a minus when it
/// can't be run: -ENOENT when there is no such program.
int RunProgram(const std::vector<std::string>& words, int output);

}  // namespace placement
