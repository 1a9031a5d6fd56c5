// Multiplicities of typed elements as sequence bounds.
#pragma once

#include <string>
#include <vector>

#include "host/element.h"
#include "types/type_user.h"

namespace mdktoidl {

/// The bound of an element's multiplicity: "" for a single value; for a bounded collection the
/// bound as IDL writes it, with `bounded` set; for an unbounded one any other text, with `bounded`
/// clear. A constant that serves as the bound is appended to `entities`, or null in its place when
/// the model names one that doesn't exist.
///
/// What is wrong with the multiplicity is reported for `user`, and the element then counts as a
/// single value.
std::string GetMultiplicity(mdk::IMdeEntity* element, const TypeUser& user, bool& bounded,
                            std::vector<mdk::IMdeEntity*>& entities);

}  // namespace mdktoidl
