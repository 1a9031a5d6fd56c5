// The types of typed elements as IDL text.
#pragma once

#include <string>
#include <vector>

#include "host/element.h"
#include "types/type_kind.h"
#include "types/type_user.h"

namespace mdktoidl {

/// What type mapping finds out about the type of an element.
struct TypeReference {
  TypeKind kind = unknownType;
  /// The IDL text, as the place of use spells it; of a plain definition the simple name.
  std::string text;
  /// The kind of a template's element, otherwise the kind itself.
  TypeKind elementKind = unknownType;
  /// What stands behind the declared name, "[2][3]" for an array; mostly empty.
  std::string declaratorSuffix;
  /// The text is a template's, be it the type itself or made from a multiplicity. Such a text
  /// already spells the names in it.
  bool isAnonymous = false;
  /// The constants that bound a multiplicity; null for one that the model names but doesn't hold.
  std::vector<mdk::IMdeEntity*> bounds;
  /// The definition that the text names, which must be a declaration of the export; null for a text
  /// of predefined types alone.
  mdk::IMdeEntity* definition = nullptr;
};

/// Resolves the "Type" of a typed element for `user`. Returns the type's definition element (for a
/// template the instantiation), or null when no type could be identified. Throws `IDLException` for
/// an identifier without a definition and for a template parameter of the wrong kind.
mdk::IMdeEntity* GetType(mdk::IMdeEntity* element, const TypeUser& user, TypeReference& result);

/// Resolves a type expression that is not a typed element's plain identifier. Returns and throws as
/// `GetType` does.
mdk::IMdeEntity* EvaluateBaseType2(mdk::IMdeEntity* expression, const TypeUser& user,
                                   TypeReference& result);

/// The same for what is no template, whatever its metaclass says.
mdk::IMdeEntity* EvaluatePlainType(mdk::IMdeEntity* expression, TypeReference& result);

}  // namespace mdktoidl
