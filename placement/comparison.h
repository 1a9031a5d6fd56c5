// Compares the files in place with those that an export made.
#pragma once

#include "placement/placement.h"

namespace placement {

/// Writes a unified diff, from the files in place to those of the exports, to `output`, a file
/// descriptor; returns true when there are differences. With `prune` files that the exports would
/// remove are differences, too. Throws `Failure` when files can't be compared.
bool PrintDifferences(const StagedExports& exports, bool prune, int output);

}  // namespace placement
