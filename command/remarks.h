// Tells the user on standard error what the reader of the model has to say.
#pragma once

#include <string>
#include <vector>

#include "command/diagnostic.h"
#include "xmi/reader.h"

namespace command {

/// The warnings about the input.
std::vector<Diagnostic> DiagnosticsOf(const xmi::Reader& reader);

/// A line that counts what was passed over, "idlexport: passed over 12 xmi:Extension", the most
/// frequent kinds first; empty when nothing was.
std::string PassedOverLine(const xmi::Reader& reader);

/// One line for each warning about the input, then one that counts what was passed over.
void PrintRemarks(const xmi::Reader& reader);

}  // namespace command
