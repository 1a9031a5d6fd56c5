// Names that can't be written in IDL at all: no identifiers, and keywords.
#pragma once

#include "command/declarations.h"
#include "command/generator_settings.h"
#include "command/name_findings.h"

namespace command {

void CheckSpelling(const Declarations& declarations, FileMapping mapping, NameFindings& findings);

}  // namespace command
