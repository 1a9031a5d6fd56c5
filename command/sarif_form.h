// Diagnostics as SARIF 2.1.0, for the tools that collect and show the results of checks.
#pragma once

#include <span>
#include <string>

#include "command/diagnostic.h"

namespace command {

/// One run. A file's path becomes a relative reference, or a "file:" URI when it is absolute. The
/// result of an element has a fingerprint of its rule and xmi:id, which stays when the element
/// moves in its file.
std::string SarifForm(std::span<const Diagnostic> diagnostics);

}  // namespace command
