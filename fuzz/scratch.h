// What fuzzers that export share: a directory that is the current one, and a run of the agent.
#pragma once

#include <string>

#include "host/element.h"

namespace fuzz {

/// Makes an empty directory the current one, in memory where that is possible; once in a process.
void EnterScratchDirectory();

/// Runs the agent and returns what it printed. Ends the process when the run doesn't end as runs
/// do.
std::string Export(mdk::IMdeEntity& artifact);

/// Ends the process with a text, which is how a fuzzer reports a fault.
[[noreturn]] void Fail(const std::string& text);

}  // namespace fuzz
