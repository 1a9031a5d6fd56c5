// Clashes of names inside one scope: among its declarations, with its own name, with what it uses.
#pragma once

#include "checks/declared_names.h"

namespace checks {

void CheckScopes(const Root& root, const DeclaredNames& names, Found& found);

}  // namespace checks
