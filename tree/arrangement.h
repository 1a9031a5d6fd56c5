// The order in which declarations are written, made such that compilers take it.
#pragma once

#include "tree/module.h"

namespace mdktoidl {

/// Brings the declarations of a tree that is evaluated into an order in which each stands behind
/// what it needs. Scopes whose plain order is such keep it. Modules that are in each other's way
/// are opened as often as need be; where each has a file, files include each other such that any of
/// them may be read first. What moves is told of as a repair, and circles that no order satisfies
/// as errors, with each of their steps. Costs time in proportion to the declarations and their
/// uses.
void Arrange(Root& root);

}  // namespace mdktoidl
