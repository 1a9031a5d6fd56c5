// The members of interfaces, homes and value types.
#pragma once

#include "tree/classification.h"

namespace mdktoidl {

/// The rows for nested types, operations and signals, which are the same for all that nest them;
/// attributes differ.
Classification WithNestedDeclarations(ClassificationRow attributes);

/// The members of interfaces and homes.
const Classification& InterfaceMembers();

}  // namespace mdktoidl
