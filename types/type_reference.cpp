#include "types/type_reference.h"

#include <utility>

#include "agent/idl_exception.h"
#include "agent/vocabulary.h"
#include "types/predefined_type.h"
#include "types/template_type.h"

namespace mdktoidl {

namespace {

void SetPredefined(std::string_view text, TypeReference& result) {
  result.kind = primitiveType;
  result.predefined = text;
}

void SetDefinition(mdk::IMdeEntity* named, TypeKind kind, std::string&& name,
                   TypeReference& result) {
  result.kind = kind;
  result.name = std::move(name);
  result.definition = named;
}

/// The definition that a typed element's identifier names.
mdk::IMdeEntity* EvaluateIdentifier(mdk::IMdeEntity* element, TypeReference& result) {
  mdk::IMdeEntity* found = element->GetEntity(properties::type, 0);
  if (found == nullptr) return nullptr;
  std::string name = found->GetValue(properties::name, 0);
  const std::string_view predefined = PredefinedType(found, name);
  if (predefined.empty()) {
    SetDefinition(found, definition, std::move(name), result);
  } else {
    SetPredefined(predefined, result);
  }
  return found;
}

/// The kind stays: what a multiplicity does to a constant or a typedef is for those to say. An
/// array is left as it is: IDL has no sequence of arrays without a name.
void WrapInSequence(TypeReference& result) {
  if (!result.multiplicity.isCollection || !result.declaratorSuffix.empty()) return;
  result.sequences.insert(result.sequences.begin(), {result.multiplicity.bound});
  result.isAnonymous = true;
}

}  // namespace

mdk::IMdeEntity* GetType(mdk::IMdeEntity* element, TypeReference& result) {
  mdk::IMdeEntity* target = element->GetTarget(properties::type, 0);
  if (target == nullptr) return nullptr;
  mdk::IMdeEntity* found = target->GetMetaclass() == metaclasses::ident
                               ? EvaluateIdentifier(element, result)
                               : EvaluateBaseType2(target, element, result);
  if (found != nullptr) WrapInSequence(result);
  return found;
}

mdk::IMdeEntity* EvaluateBaseType2(mdk::IMdeEntity* expression, mdk::IMdeEntity* user,
                                   TypeReference& result) {
  if (expression->GetMetaclass() != metaclasses::templateInstantiation) {
    return EvaluatePlainType(expression, user, result);
  }
  RetrieveTemplate(expression, user, result);
  return expression;
}

mdk::IMdeEntity* EvaluatePlainType(mdk::IMdeEntity* expression, mdk::IMdeEntity* user,
                                   TypeReference& result) {
  std::string name = expression->GetValue(properties::name, 0);
  const std::string_view predefined = PredefinedType(expression, name);
  if (!predefined.empty()) {
    SetPredefined(predefined, result);
    return expression;
  }
  if (expression->GetMetaclass() != metaclasses::ident) {
    SetDefinition(expression, definition, std::move(name), result);
    return expression;
  }
  mdk::IMdeEntity* found = expression->GetEntity(properties::definition, 0);
  if (found == nullptr) throw IDLException({Message::nameUnresolved, user, {}});
  SetDefinition(found, identifiedDefinition, std::move(name), result);
  return found;
}

}  // namespace mdktoidl
