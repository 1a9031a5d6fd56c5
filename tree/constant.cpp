#include "tree/constant.h"

#include "agent/diagnostics.h"
#include "agent/idl_exception.h"
#include "output/layout.h"
#include "tree/alias.h"
#include "tree/declaration_user.h"
#include "tree/enumeration.h"
#include "types/constant_value.h"
#include "types/elements.h"
#include "types/properties.h"

namespace mdktoidl {

void Constant::EvaluateTypes(NodeList& deps) {
  if (!Elements(Entity(), properties::multiplicity).empty()) {
    Report(Message::constantHasMultiplicity, {ScopedName("::")});
  }
  if (EvaluateType(deps)) EvaluateValue(deps);
}

bool Constant::EvaluateType(NodeList& deps) {
  TypeReference reference;
  GetType(Entity(), DeclarationUser(*this, "constant "), reference);
  typeKind = reference.kind;
  typeName = reference.text;
  elementKind = reference.elementKind;
  switch (typeKind) {
    case primitiveType:
      return true;
    case templateType:
      Report(Message::constantTypeIsTemplate, {ScopedName("::")});
      return false;
    case definition:
    case identifiedDefinition:
      return EvaluateDefinition(reference, deps);
    case unknownType:
      break;
  }
  // Nobody else says so, not even when the constant has no type at all.
  Report(Message::constantTypeUnknown, {ScopedName("::")});
  return false;
}

bool Constant::EvaluateDefinition(const TypeReference& reference, NodeList& deps) {
  type = GetNodeRef(reference.definition);
  if (type == nullptr) {
    Report(Message::constantTypeNotExported, {ScopedName("::")});
    return false;
  }
  deps.push_back(type);
  if (!reference.isAnonymous && !InCurrentScope(type)) auxText = type->ScopedName("::");
  return true;
}

void Constant::EvaluateValue(NodeList& deps) {
  mdk::IMdeEntity* value = Entity()->GetEntity(properties::defaultValue, 0);
  if (value == nullptr) {
    Report(Message::constantHasNoValue, {ScopedName("::")});
    return;
  }
  const std::string metaclass = value->GetMetaclass();
  if (metaclass == "RealValue" || metaclass == "IntegerValue" || metaclass == "CharacterValue" ||
      metaclass == "CharstringValue") {
    valueText = value->GetValue(properties::valueString, 0);
  } else if (metaclass == "Ident") {
    EvaluateIdentifier(value, deps);
  } else {
    Report(Message::constantValueNotSupported, {ScopedName("::")});
  }
}

void Constant::EvaluateIdentifier(mdk::IMdeEntity* identifier, NodeList& deps) {
  valueText = identifier->GetValue(properties::name, 0);
  mdk::IMdeEntity* named = identifier->GetEntity(properties::definition, 0);
  if (named == nullptr) throw IDLException("Failed to interpret ident correctly");
  const Alias base = type == nullptr ? Alias() : Unaliased(*type);
  const Enumeration* enumeration =
      base.declaration == nullptr ? nullptr : base.declaration->AsEnumeration();
  if (enumeration != nullptr && enumeration->hasLiteral(named)) {
    // An enumerator has no node of its own: it is declared by its enumeration, in whose scope its
    // name lies.
    valueNode = GetNodeRef(enumeration->Entity());
  } else {
    valueNode = GetNodeRef(named);
  }
  if (valueNode == nullptr) {
    Report(Message::constantValueNotExported, {ScopedName("::")});
    return;
  }
  deps.push_back(valueNode);
  VisitedConstants visited;
  if (EvaluateConstant(Entity(), visited).state == ConstantState::circular) {
    Report(Message::constantIsCircular, {ScopedName("::")});
  }
}

std::string Constant::QualifiedValue() const {
  if (valueNode == nullptr || InCurrentScope(valueNode)) return valueText;
  const Enumeration* enumeration = valueNode->AsEnumeration();
  return enumeration != nullptr ? enumeration->LiteralFor(*this, valueText)
                                : valueNode->ScopedName("::");
}

void Constant::Unparse(std::ofstream& out) {
  UnparseComment(Entity(), out);
  newline(out);
  out << "const " << TypeText() << ' ' << Name() << " = " << QualifiedValue() << ';';
}

}  // namespace mdktoidl
