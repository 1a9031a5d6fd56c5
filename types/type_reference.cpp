#include "types/type_reference.h"

#include <string_view>
#include <utility>

#include "agent/diagnostics.h"
#include "agent/idl_exception.h"
#include "types/multiplicity.h"
#include "types/predefined_type.h"
#include "types/properties.h"
#include "types/template_type.h"

namespace mdktoidl {

namespace {

void SetPredefined(std::string_view text, TypeReference& result) {
  result.kind = result.elementKind = primitiveType;
  result.text = text;
}

void SetDefinition(mdk::IMdeEntity* named, TypeKind kind, std::string&& name,
                   TypeReference& result) {
  result.kind = result.elementKind = kind;
  result.text = std::move(name);
  result.definition = named;
}

/// The definition that a typed element's identifier names.
mdk::IMdeEntity* EvaluateIdentifier(mdk::IMdeEntity* element, TypeReference& result) {
  mdk::IMdeEntity* found = element->GetEntity(properties::type, 0);
  if (found == nullptr) return nullptr;
  std::string name = found->GetValue(properties::name, 0);
  const std::string_view predefined = PredefinedType(name);
  if (predefined.empty()) {
    SetDefinition(found, definition, std::move(name), result);
  } else {
    SetPredefined(predefined, result);
  }
  return found;
}

/// Wraps the type in a sequence. The kind stays: what a multiplicity does to a constant or a
/// typedef is for those to say.
void WrapInSequence(const std::string& multiplicity, bool bounded, const TypeUser& user,
                    TypeReference& result) {
  if (!result.declaratorSuffix.empty()) {
    Report(Message::multiplicityOfArray, {user.Describe()});
    return;
  }
  const bool isName = !result.isAnonymous && result.definition != nullptr;
  std::string element = isName ? user.Spell(result.definition) : result.text;
  if (bounded) element += ", " + multiplicity;
  result.text = SequenceText(element);
  result.isAnonymous = true;
}

}  // namespace

mdk::IMdeEntity* GetType(mdk::IMdeEntity* element, const TypeUser& user, TypeReference& result) {
  bool bounded = false;
  const std::string multiplicity = GetMultiplicity(element, user, bounded, result.bounds);
  mdk::IMdeEntity* target = element->GetTarget(properties::type, 0);
  if (target == nullptr) return nullptr;
  mdk::IMdeEntity* found = target->GetMetaclass() == "Ident"
                               ? EvaluateIdentifier(element, result)
                               : EvaluateBaseType2(target, user, result);
  if (found != nullptr && !multiplicity.empty()) {
    WrapInSequence(multiplicity, bounded, user, result);
  }
  return found;
}

mdk::IMdeEntity* EvaluateBaseType2(mdk::IMdeEntity* expression, const TypeUser& user,
                                   TypeReference& result) {
  if (expression->GetMetaclass() != "TemplateInstantiation") {
    return EvaluatePlainType(expression, result);
  }
  RetrieveTemplate(expression, user, result);
  return expression;
}

mdk::IMdeEntity* EvaluatePlainType(mdk::IMdeEntity* expression, TypeReference& result) {
  std::string name = expression->GetValue(properties::name, 0);
  const std::string_view predefined = PredefinedType(name);
  if (!predefined.empty()) {
    SetPredefined(predefined, result);
    return expression;
  }
  if (expression->GetMetaclass() != "Ident") {
    SetDefinition(expression, definition, std::move(name), result);
    return expression;
  }
  mdk::IMdeEntity* found = expression->GetEntity(properties::definition, 0);
  if (found == nullptr) throw IDLException("Failed to interpret ident correctly");
  SetDefinition(found, identifiedDefinition, std::move(name), result);
  return found;
}

}  // namespace mdktoidl
