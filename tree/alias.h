// Type definitions followed to what they stand for.
#pragma once

#include "tree/node.h"

namespace mdktoidl {

/// What a declaration is in the end another name of; the declaration itself when it is none. Empty
/// for definitions that lead in a circle.
Alias Unaliased(const Node& node);

}  // namespace mdktoidl
