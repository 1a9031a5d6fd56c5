// The checks of names, each of which looks at all of the tree for one way that a name can be wrong.
#pragma once

#include "scopes/declared_names.h"

namespace mdktoidl {

/// Clashes inside one scope: among its declarations, with its own name, with what it uses.
void CheckScopes(const Root& root, const DeclaredNames& names);

/// Clashes along inheritance: with inherited members, and of these among themselves. Costs time in
/// proportion to what is declared, and to the heirs of what may clash.
void CheckInheritance(const Root& root, const DeclaredNames& names);

/// Names that are written without their scope where IDL doesn't find them.
void CheckVisibility(const Root& root);

}  // namespace mdktoidl
