// Clashes of names with inherited operations, attributes, state members and ports.
//
// IDL lets nothing take the name of what its interface inherits, and no interface inherit two
// things of one name; the same thing inherited along two ways is one thing.
#pragma once

#include "command/declaration_uses.h"
#include "command/declarations.h"
#include "command/declared_names.h"
#include "command/name_findings.h"

namespace command {

void CheckInheritance(const Declarations& declarations, const DeclaredNames& names,
                      const DeclarationUses& uses, NameFindings& findings);

}  // namespace command
