// Tells the user on standard error what the reader of the model has to say.
#pragma once

#include "xmi/reader.h"

namespace command {

/// One line for each warning about the input, then one that counts what was passed over.
void PrintRemarks(const xmi::Reader& reader);

}  // namespace command
