// Diagnostics as compilers print them, one line each, which editors know how to follow.
#pragma once

#include <span>
#include <string>

#include "command/diagnostic.h"

namespace command {

/// "FILE:LINE:COLUMN: error: TEXT [RULE]" and a line end for each. What is unknown of the place is
/// left out; without a file the command's name stands there. Control characters are written as
/// escapes ("\n"). With `colour`, severities are coloured for a terminal.
std::string GccForm(std::span<const Diagnostic> diagnostics, bool colour = false);

}  // namespace command
