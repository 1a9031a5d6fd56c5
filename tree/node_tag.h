// The tag by which an element leads back to the node that was built for it.
#pragma once

#include "host/element.h"

namespace mdktoidl {

/// Writes a node's number as the tag of an element. Does nothing when the host's model lacks the
/// stereotype that carries tags.
void WriteNodeTag(mdk::IMdeEntity* element, long serial);

/// The number on an element, whoever left it; 0 when there is none.
long ReadNodeTag(mdk::IMdeEntity* element);

/// Removes all tags from the model that `element` belongs to.
void deleteNodeStereotypes(mdk::IMdeEntity* element);

}  // namespace mdktoidl
