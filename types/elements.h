// Lists of model elements as the host gives them.
#pragma once

#include <list>
#include <string>

#include "host/element.h"

namespace mdktoidl {

/// The elements of a multi-valued property, in the model's order; a host's nulls are left out.
std::list<mdk::IMdeEntity*> Elements(mdk::IMdeEntity* element, const std::string& property);

/// The suppliers of the element's dependencies that carry a stereotype, in the model's order.
std::list<mdk::IMdeEntity*> Suppliers(mdk::IMdeEntity* element, const std::string& stereotype);

}  // namespace mdktoidl
