// Names for the types that have none where IDL demands one.
#pragma once

#include "tree/module.h"

namespace mdktoidl {

/// Has every attribute, parameter and result whose type is a sequence, an array or a fixed-point
/// number without a name write a name: that of a definition of the model that means the same and
/// stands in a scope around it, else that of a typedef, which is put into the tree. Of a tree that
/// is evaluated; its names and its order are still to be made legal. Costs time in proportion to
/// the declarations and to what they name.
void NameTypes(Root& root);

}  // namespace mdktoidl
