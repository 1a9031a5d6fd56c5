// The one interface that a value type supports, besides abstract ones: what heirs support must be
// derived from it.
#pragma once

#include "tree/module.h"

namespace mdktoidl {

/// Reports value types whose supported interfaces contradict those of their bases.
void CheckSupportedInterfaces(const Root& root);

}  // namespace mdktoidl
