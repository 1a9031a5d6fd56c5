// The checks of names, each of which looks at all of the tree for one way that a name can be wrong.
#pragma once

#include "checks/declared_names.h"

namespace checks {

/// Clashes inside one scope: among its declarations, with its own name, with what it uses.
void CheckScopes(const Root& root, const DeclaredNames& names, DiagnosticList& found);

/// Clashes along inheritance: with inherited members, and of these among themselves. Costs time in
/// proportion to what is declared, and to the heirs of what may clash.
void CheckInheritance(const Root& root, const DeclaredNames& names, DiagnosticList& found);

/// Names that are written without their scope where IDL doesn't find them.
void CheckVisibility(const Root& root, DiagnosticList& found);

}  // namespace checks
