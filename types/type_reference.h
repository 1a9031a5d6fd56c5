// The types of typed elements, as IDL knows types.
//
// What is found out here is the structure: predefined or a definition, and the templates around it.
// How a definition's name has to be written is not known here; the declaration that uses it knows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/element.h"
#include "types/multiplicity.h"

namespace mdktoidl {

/// The kind of a resolved type reference; the last two designate declarations.
enum TypeKind : std::uint8_t {
  unknownType = 0,          ///< no type could be identified
  primitiveType = 1,        ///< predefined; the text is its IDL keyword text
  templateType = 2,         ///< an anonymous template instantiation, or an array
  definition = 3,           ///< a named definition used directly
  identifiedDefinition = 4  ///< a named definition reached through an identifier expression
};

/// A sequence around a type.
struct SequenceLevel {
  /// The number that bounds it; empty for none, and for one that a multiplicity bounds by name.
  std::string bound;
};

struct TypeReference {
  TypeKind kind = unknownType;
  /// What is inside all sequences and arrays, where that is predefined: "unsigned long". The text
  /// lives as long as the program.
  std::string_view predefined;
  /// The same for bounded strings and fixed-point numbers, "string<8>", which have no such text.
  std::string bounded;
  /// The same where it is a definition, which must be a declaration of the export; null otherwise.
  mdk::IMdeEntity* definition = nullptr;
  /// The name of the definition as the place of use in the model has it.
  std::string name;
  /// The sequences, from the outside in; one that the multiplicity makes is the first.
  std::vector<SequenceLevel> sequences;
  /// What stands behind the declared name, "[2][3]" for an array; mostly empty.
  std::string declaratorSuffix;
  /// It is a template, by itself or by its multiplicity.
  bool isAnonymous = false;
  Multiplicity multiplicity;
};

/// Resolves the "Type" of a typed element, whose multiplicity `result` holds already. Returns the
/// type's definition element (for a template the instantiation), or null when no type could be
/// identified. Throws `IDLException` for an identifier without a definition and for a template
/// parameter of the wrong kind.
mdk::IMdeEntity* GetType(mdk::IMdeEntity* element, TypeReference& result);

/// Resolves a type expression that is not a typed element's plain identifier. `user` is the element
/// to blame. Returns and throws as `GetType` does.
mdk::IMdeEntity* EvaluateBaseType2(mdk::IMdeEntity* expression, mdk::IMdeEntity* user,
                                   TypeReference& result);

/// The same for what is no template, whatever its metaclass says.
mdk::IMdeEntity* EvaluatePlainType(mdk::IMdeEntity* expression, mdk::IMdeEntity* user,
                                   TypeReference& result);

}  // namespace mdktoidl
