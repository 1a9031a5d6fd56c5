// The types that IDL predefines, and the names under which a model knows them.
#pragma once

#include <string>
#include <string_view>

#include "host/element.h"

namespace mdktoidl {

/// The IDL text of the predefined type of that name in models; empty for any other name.
std::string_view PredefinedType(const std::string& name);

/// The IDL text of a predefined type, found by the element's name alone; empty for any other
/// element and for null.
std::string PrimitiveToString(mdk::IMdeEntity* type);

}  // namespace mdktoidl
