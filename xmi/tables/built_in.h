// The project's profile and library of types, compiled in.
#pragma once

#include <string_view>

namespace xmi::built_in {

extern const std::string_view CORBA_profile_uml;
extern const std::string_view CORBA_library_uml;

}  // namespace xmi::built_in
