// Clashes of names inside one scope: among its declarations, with its own name, with what it uses.
#pragma once

#include "command/declaration_uses.h"
#include "command/declarations.h"
#include "command/declared_names.h"
#include "command/name_findings.h"

namespace command {

void CheckScopes(const Declarations& declarations, const DeclaredNames& names,
                 const DeclarationUses& uses, NameFindings& findings);

}  // namespace command
