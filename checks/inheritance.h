// Clashes of names along inheritance: with inherited members, and of these among themselves.
#pragma once

#include "checks/declared_names.h"

namespace checks {

/// Costs time in proportion to what is declared, and to the heirs of what may clash.
void CheckInheritance(const Root& root, const DeclaredNames& names, Found& found);

}  // namespace checks
