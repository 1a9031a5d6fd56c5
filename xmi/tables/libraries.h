// The libraries of primitive types: the project's own, and those that every tool knows and no model
// brings along.
#pragma once

#include <string_view>

namespace xmi {

namespace built_in {
/// The project's own library, compiled in from its file.
extern const std::string_view CORBA_library_uml;
}  // namespace built_in

/// The name of the project's own library, known by the last part of its address.
inline constexpr std::string_view kLibraryFile = "CORBA.library.uml";

/// What a reference into a well-known library means.
struct LibraryReference {
  bool isKnown = false;   ///< The address is one of a well-known library.
  std::string_view type;  ///< The id in the project's library; empty for nothing of use.
};

/// Looks up a reference by the last part of its address and its fragment.
LibraryReference FindInLibrary(std::string_view fileName, std::string_view fragment);

/// The name that a primitive type of a model's own answers: UML's "String" and "UnlimitedNatural"
/// have other names here.
std::string_view PrimitiveName(std::string_view name);

/// True for the name of one of the templates that a type may be an instantiation of.
bool IsTemplateName(std::string_view name);

}  // namespace xmi
