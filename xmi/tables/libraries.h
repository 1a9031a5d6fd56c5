// The libraries of primitive types that every tool knows and no model brings along.
#pragma once

#include <string_view>

namespace xmi {

/// The name of the project's own library, known by the last part of its address.
inline constexpr std::string_view kLibraryFile = "CORBA.library.uml";

/// What a reference into a well-known library means.
struct LibraryReference {
  bool known = false;     ///< The address is one of a well-known library.
  std::string_view type;  ///< The id in the project's library; empty for nothing of use.
};

/// Looks up a reference by the last part of its address and its fragment.
LibraryReference FindInLibrary(std::string_view fileName, std::string_view fragment);

/// The name that a primitive type of a model's own answers: UML's "String" and "UnlimitedNatural"
/// have other names here.
std::string_view PrimitiveName(std::string_view name);

}  // namespace xmi
