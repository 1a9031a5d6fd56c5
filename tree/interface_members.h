// What the members of interfaces and value types have in common.
#pragma once

#include "tree/classification.h"

namespace mdktoidl {

/// The rows for nested types, operations and signals, which are the same for all that nest them;
/// attributes differ.
Classification WithNestedDeclarations(ClassificationRow attributes);

}  // namespace mdktoidl
