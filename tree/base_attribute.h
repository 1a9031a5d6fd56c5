// The attribute that gives a type definition its type.
#pragma once

#include <list>

#include "host/element.h"

namespace mdktoidl {

/// The attributes among the owned members of an element, in the model's order.
std::list<mdk::IMdeEntity*> OwnedAttributes(mdk::IMdeEntity* element);

/// Whether a typed element has a multiplicity.
bool hasMultiplicity(mdk::IMdeEntity* element);

}  // namespace mdktoidl
