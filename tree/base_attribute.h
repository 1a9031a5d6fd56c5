// The attribute that gives a type definition its type.
#pragma once

#include <list>

#include "host/element.h"
#include "tree/node.h"

namespace mdktoidl {

/// The attributes among the owned members of an element, in the model's order.
std::list<mdk::IMdeEntity*> OwnedAttributes(mdk::IMdeEntity* element);

/// The first attribute of a declaration's element, which gives it its type; null when there is
/// none. Reports `lacks` for none and `more` for several.
mdk::IMdeEntity* BaseAttribute(const Node& declaration, Message lacks, Message more);

/// Whether a typed element has a multiplicity.
bool hasMultiplicity(mdk::IMdeEntity* element);

}  // namespace mdktoidl
