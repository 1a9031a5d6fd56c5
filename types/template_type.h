// Instantiations of IDL's templates: sequence, string, wstring, fixed and array.
#pragma once

#include <string>
#include <string_view>

#include "host/element.h"
#include "types/type_reference.h"
#include "types/type_user.h"

namespace mdktoidl {

/// "sequence<" with the arguments and ">", with a blank between closing brackets, which the lexer
/// of IDL would otherwise read as a shift.
std::string SequenceText(std::string_view arguments);

/// Builds the text of a template instantiation, with all templates inside it; the kind becomes
/// `templateType`, or `unknownType` for a template that IDL doesn't have. Throws `IDLException` for
/// a parameter of the wrong kind, one that is missing, and one that contains itself.
void RetrieveTemplate(mdk::IMdeEntity* instantiation, const TypeUser& user, TypeReference& result);

}  // namespace mdktoidl
