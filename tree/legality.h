// What compilers demand of declarations beyond their names and their order.
#pragma once

#include "tree/module.h"

namespace mdktoidl {

/// Repairs what declarations can repair of themselves, in the order of creation, and tells of it.
void RepairDeclarations(const Root& root);

/// Reports declarations that no compiler takes. The tree has to be evaluated.
void CheckDeclarations(const Root& root);

}  // namespace mdktoidl
