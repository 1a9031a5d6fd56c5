// The types that IDL predefines, and the names under which a model knows them.
#pragma once

#include <string>

#include "host/element.h"

namespace mdktoidl {

/// The IDL text of a predefined type, found by the element's name alone; empty for any other
/// element and for null.
std::string PrimitiveToString(mdk::IMdeEntity* type);

}  // namespace mdktoidl
