// Declarations whose names are in each other's way. No spelling of a use helps there.
#pragma once

#include "scopes/scope_table.h"

namespace mdktoidl {

/// Clashes inside one scope: among its declarations, and with its own name.
void CheckDeclaredNames(const Root& root, const DeclaredNames& names, const ScopeTable& table);

/// Clashes along inheritance: with inherited members, and of these among themselves. Costs time in
/// proportion to what is declared, and to the heirs of what may clash.
void CheckInheritedNames(const Root& root, const DeclaredNames& names);

}  // namespace mdktoidl
