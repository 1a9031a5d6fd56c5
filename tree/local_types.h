// Local interfaces, and all types that hold them: only local interfaces may use them.
#pragma once

#include "tree/module.h"

namespace mdktoidl {

/// Reports what uses a local type and can be called from elsewhere.
void CheckLocalTypes(const Root& root);

}  // namespace mdktoidl
