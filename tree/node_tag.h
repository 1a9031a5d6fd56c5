// The tags by which exporters lead from elements to declarations, and what is left of them.
//
// This one finds its nodes without (node_registry.h); others write tags, and leave them in the
// model when they are broken off.
#pragma once

#include "host/element.h"

namespace mdktoidl {

/// Removes all such tags from the model that `element` belongs to.
void deleteNodeStereotypes(mdk::IMdeEntity* element);

}  // namespace mdktoidl
