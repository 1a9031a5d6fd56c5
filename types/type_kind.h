// The kind of a resolved type reference.
#pragma once

#include <cstdint>

namespace mdktoidl {

/// Construct rules differ by kind; `definition` and `identifiedDefinition` designate declarations.
enum TypeKind : std::uint8_t {
  unknownType = 0,          ///< no type could be identified
  primitiveType = 1,        ///< predefined; the text is its IDL keyword text
  templateType = 2,         ///< an anonymous template instantiation, or an array
  definition = 3,           ///< a named definition used directly
  identifiedDefinition = 4  ///< a named definition reached through an identifier expression
};

}  // namespace mdktoidl
