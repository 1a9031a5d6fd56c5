// Names that can't be written in IDL at all: no identifiers, and keywords.
#pragma once

#include "command/declarations.h"
#include "command/declared_names.h"
#include "command/generator_settings.h"
#include "command/name_findings.h"

namespace command {

void CheckSpelling(const Declarations& declarations, const DeclaredNames& names,
                   FileMapping mapping, NameFindings& findings);

}  // namespace command
