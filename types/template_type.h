// Instantiations of IDL's templates: sequence, string, wstring, fixed and array.
#pragma once

#include "host/element.h"
#include "types/type_reference.h"

namespace mdktoidl {

/// Resolves a template instantiation, with all templates inside it; the kind becomes
/// `templateType`, or stays `unknownType` for a template that IDL doesn't have. Throws
/// `IDLException` for a parameter of the wrong kind, one that is missing, and one that contains
/// itself.
void RetrieveTemplate(mdk::IMdeEntity* instantiation, mdk::IMdeEntity* user, TypeReference& result);

}  // namespace mdktoidl
