// The types that IDL predefines, and the names under which a model knows them.
#pragma once

#include <string>
#include <string_view>

#include "host/element.h"

namespace mdktoidl {

/// The IDL text of the predefined type that an element of that name is; empty for any other. In the
/// plain form the name alone decides, so that a declaration of such a name can't be used; else it is
/// no predefined type if it is marked as a declaration.
std::string_view PredefinedType(mdk::IMdeEntity* element, const std::string& name);

/// The same, of a type that may be null, which is none.
std::string PrimitiveToString(mdk::IMdeEntity* type);

}  // namespace mdktoidl
