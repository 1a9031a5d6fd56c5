// How names are spelled where they are used.
#pragma once

#include "scopes/look_up.h"

namespace mdktoidl {

/// Looks at each name that is written: whether it means there what it should. One that doesn't is
/// spelled otherwise, if names may be repaired, and is told of.
void SpellNames(const Root& root, LookUp& lookUp, bool mayRepair);

}  // namespace mdktoidl
