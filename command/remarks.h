// What the reader of the model has to say.
#pragma once

#include <string>
#include <vector>

#include "command/diagnostic.h"
#include "xmi/reader.h"

namespace command {

/// The warnings about the input.
std::vector<Diagnostic> DiagnosticsOf(const xmi::Reader& reader);

/// What was passed over, "passed over 12 xmi:Extension", the most frequent kinds first; empty when
/// nothing was.
std::string PassedOverText(const xmi::Reader& reader);

}  // namespace command
