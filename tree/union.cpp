#include "tree/union.h"

#include <array>

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "tree/alias.h"
#include "tree/base_attribute.h"
#include "tree/case.h"
#include "tree/case_labels.h"
#include "tree/declaration_user.h"
#include "types/markings.h"
#include "types/predefined_type.h"

namespace mdktoidl {

namespace {

/// Whether a type, followed through type definitions, can tell cases apart.
bool isDiscriminating(const Alias& type) {
  constexpr std::array primitives = {"short",          "long",          "long long",
                                     "unsigned short", "unsigned long", "unsigned long long",
                                     "char",           "boolean"};
  if (type.declaration != nullptr) return type.declaration->AsEnumeration() != nullptr;
  for (const char* primitive : primitives) {
    if (type.primitive == primitive) return true;
  }
  return false;
}

}  // namespace

Union::Union(mdk::IMdeEntity* element, Container* parent) : Container(element, parent) {
  CreateNodeRef();
  for (mdk::IMdeEntity* attribute : OwnedAttributes(element)) {
    if (isMarked(attribute, markings::unionCase)) {
      if (isConstant(attribute)) Report(Message::unionHasConstant, {ScopedName("::")});
      Adopt(std::make_unique<Case>(attribute, this));
    } else if (discriminator == nullptr) {
      discriminator = attribute;
    } else {
      Report(Message::unionHasMoreDiscriminators, {ScopedName("::")});
    }
  }
  if (children.empty()) Report(Message::unionLacksCase, {ScopedName("::")});
  if (discriminator == nullptr) Report(Message::unionLacksDiscriminator, {ScopedName("::")});
}

bool Union::isSimpleUnion() const {
  static const std::string expression = "CORBAUnion (. isSimple .)";
  return TaggedLiteral(Entity(), expression, "false") == "true";
}

void Union::EvaluateTypes(NodeList& deps) {
  EvaluateChildren(deps);
  if (discriminator == nullptr) return;
  EvaluateDiscriminator(deps);
  LabelCases();
}

void Union::EvaluateDiscriminator(NodeList& deps) {
  if (hasMultiplicity(discriminator)) {
    Report(Message::discriminatorHasMultiplicity, {ScopedName("::")});
  }
  TypeReference reference;
  mdk::IMdeEntity* found = GetType(discriminator, DeclarationUser(*this, "union "), reference);
  typeKind = reference.kind;
  typeName = reference.text;
  switch (typeKind) {
    case unknownType:
      Report(Message::discriminatorUnknown, {ScopedName("::")});
      return;
    case templateType:
      Report(Message::discriminatorIsTemplate, {ScopedName("::")});
      return;
    case primitiveType:
      discriminatorType.primitive = PrimitiveToString(found);
      break;
    case definition:
    case identifiedDefinition:
      EvaluateDiscriminatorNode(reference, deps);
      if (type == nullptr) return;
      break;
  }
  if (!isDiscriminating(discriminatorType)) {
    Report(Message::discriminatorOfWrongType, {ScopedName("::")});
  }
}

void Union::EvaluateDiscriminatorNode(const TypeReference& reference, NodeList& deps) {
  type = GetNodeRef(reference.definition);
  if (type == nullptr) {
    Report(Message::discriminatorNotExported, {ScopedName("::")});
    return;
  }
  deps.push_back(type);
  if (!InCurrentScope(type)) auxText = type->ScopedName("::");
  discriminatorType = Unaliased(*type);
}

void Union::LabelCases() const {
  CaseLabels labels(*this, discriminatorType, isSimpleUnion());
  for (const auto& child : children) labels.Label(static_cast<Case&>(*child));
}

void Union::Unparse(std::ofstream& out) {
  UnparseHeading(out);
  out << "union " << Name() << " switch (" << TypeText() << ')';
  UnparseBody(out);
}

void Union::UnparseForward(std::ofstream& out) const {
  newline(out);
  out << "union " << Name() << ';';
}

}  // namespace mdktoidl
