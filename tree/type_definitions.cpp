#include "tree/type_definitions.h"

#include <unordered_set>

#include "types/elements.h"
#include "types/predefined_type.h"

namespace mdktoidl {

namespace {

/// The first attribute of a declaration's element, which gives it its type; null when there is
/// none. Reports `lacks` for none and `more` for several.
mdk::IMdeEntity* BaseAttribute(const Node& declaration, Message lacks, Message more) {
  const std::list<mdk::IMdeEntity*> attributes = OwnedAttributes(declaration.Entity());
  if (attributes.size() != 1) declaration.Report(attributes.empty() ? lacks : more);
  return attributes.empty() ? nullptr : attributes.front();
}

bool isTemplate(mdk::IMdeEntity* target) {
  return target != nullptr && target->GetMetaclass() == metaclasses::templateInstantiation;
}

}  // namespace

Typedef::Typedef(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) {
  CreateNodeRef();
  const std::list<mdk::IMdeEntity*> attributes = OwnedAttributes(element);
  if (!attributes.empty()) {
    attribute = attributes.front();
    if (attributes.size() > 1) Report(Message::typedefHasMoreAttributes);
    return;
  }
  const std::list<mdk::IMdeEntity*> generalizations = Elements(element, properties::generalization);
  if (generalizations.size() == 1) {
    general = generalizations.front()->GetEntity(properties::parent, 0);
  }
  if (general == nullptr) Report(Message::typedefLacksType);
}

void Typedef::ResolveTypes(NodeList&) {
  if (attribute == nullptr && general == nullptr) return;
  if (attribute != nullptr && hasMultiplicity(attribute)) Report(Message::typedefHasMultiplicity);
  mdk::IMdeEntity* target =
      attribute == nullptr ? general : attribute->GetTarget(properties::type, 0);
  const TypeDiagnostics diagnostics = {
      "typedef ", std::nullopt,
      isTemplate(target) ? Message::typedefTemplateUnknown : Message::typedefTypeUnknown,
      std::nullopt, Message::typedefTypeNotExported};
  if (attribute != nullptr) return ResolveType(attribute, diagnostics, type);
  TypeReference reference;
  EvaluateBaseType2(general, Entity(), reference);
  ReportType(reference, diagnostics);
  UseType(std::move(reference), type);
}

std::optional<Alias> Typedef::AliasOf() const {
  if (known) return known;
  mdk::IMdeEntity* base =
      attribute == nullptr ? general : attribute->GetEntity(properties::type, 0);
  const std::string primitive = PrimitiveToString(base);
  if (!primitive.empty()) return Alias{nullptr, primitive};
  Node* node = GetNodeRef(base);
  return Alias{node, {}, node == nullptr ? this : nullptr};
}

void Typedef::Unparse(Writer& out) const {
  UnparseComment(Entity(), out);
  newline(out);
  out << "typedef " << type << ' ' << Written() << type.DeclaratorSuffix() << ';';
}

Sequence::Sequence(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) {
  CreateNodeRef();
  attribute =
      BaseAttribute(*this, Message::sequenceLacksAttribute, Message::sequenceHasMoreAttributes);
}

void Sequence::ResolveTypes(NodeList&) {
  static constexpr TypeDiagnostics diagnostics = {"sequence ", std::nullopt,
                                                  Message::sequenceTypeUnknown, std::nullopt,
                                                  Message::sequenceTypeNotExported};
  if (attribute == nullptr) return;
  if (hasMultiplicity(attribute)) Report(Message::sequenceHasMultiplicity);
  ResolveType(attribute, diagnostics, type, UseRole::element);
  const bool isArray = !type.DeclaratorSuffix().empty();
  if (type.Kind() == templateType) {
    Report(isArray ? Message::sequenceTypeIsArray : Message::sequenceTypeAnonymous);
  }
  type.WrapInSequence();
  for (Use& use : uses) use.isInSequence = use.role == UseRole::element && !isArray;
}

void Sequence::Unparse(Writer& out) const {
  UnparseComment(Entity(), out);
  newline(out);
  out << "typedef " << type << ' ' << Written() << ';';
}

AddedTypedef::AddedTypedef(std::string_view name, Container* parent, const Node& user,
                           const WrittenType& its)
    : Node(nullptr, name, parent), blamed(user.Blamed()) {
  const Use* named = nullptr;
  const Use* bound = nullptr;
  if (Node* node = its.BoundConstant()) {
    bound = &AddUse(*node, UseRole::bound, SpellingInTemplate(*node));
  }
  if (Node* node = its.Definition()) {
    Use& use = AddUse(*node, UseRole::element, SpellingInTemplate(*node));
    use.isInSequence = !its.Sequences().empty();
    named = &use;
  }
  type.CopyFrom(its, named, bound);
}

void AddedTypedef::Unparse(Writer& out) const {
  newline(out);
  out << "typedef " << type << ' ' << Written() << type.DeclaratorSuffix() << ';';
}

BoxedValue::BoxedValue(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) {
  CreateNodeRef();
  attribute =
      BaseAttribute(*this, Message::boxedValueLacksAttribute, Message::boxedValueHasMoreAttributes);
}

void BoxedValue::ResolveTypes(NodeList&) {
  static constexpr TypeDiagnostics diagnostics = {"boxed value ", std::nullopt,
                                                  Message::boxedValueTypeUnknown, std::nullopt,
                                                  Message::boxedValueTypeNotExported};
  if (attribute == nullptr) return;
  if (hasMultiplicity(attribute)) Report(Message::boxedValueHasMultiplicity);
  ResolveType(attribute, diagnostics, type);
  if (!type.DeclaratorSuffix().empty()) Report(Message::boxedValueTypeIsArray);
}

void BoxedValue::CheckLegality(const ConstantNames&) const {
  const BaseType base = BaseOf(type);
  const bool isOfValue =
      base.declaration != nullptr &&
      (base.declaration->Means() & (meanings::value | meanings::event | meanings::boxed)) != 0;
  if (isOfValue) {
    Report(Message::boxedValueOfValue, {ScopedName("::"), base.declaration->Described()},
           *base.declaration, "declared here");
  }
  const Node* around = Enclosing();
  if (around != nullptr && !around->isModule()) {
    Report(Message::boxedValueNotInModule, {ScopedName("::"), around->Described()}, *around,
           "it stands in this");
  }
}

void BoxedValue::Unparse(Writer& out) const {
  UnparseComment(Entity(), out);
  newline(out);
  out << "valuetype " << Written() << ' ' << type << ';';
}

// Every definition on the way remembers the end, so that many users of a long chain of definitions
// cost its length once.
Alias Unaliased(const Node& node) {
  std::unordered_set<const Node*> passed;
  Alias current{&node, {}};
  while (current.declaration != nullptr) {
    const auto next = current.declaration->AliasOf();
    if (!next) break;
    const bool isCircle = !passed.insert(current.declaration).second;
    current = isCircle ? Alias() : *next;
  }
  for (const Node* definition : passed) definition->RememberAlias(current);
  return current;
}

std::string BaseType::Text() const {
  if (declaration != nullptr) return declaration->Described();
  return isMadeOfElements ? "a sequence or an array" : predefined;
}

BaseType BaseOf(const WrittenType& type) {
  if (type.isMadeOfElements()) return {nullptr, {}, true};
  if (type.Definition() == nullptr) return {nullptr, std::string(type.Predefined()), false};
  const Alias end = Unaliased(*type.Definition());
  const WrittenType* named = end.definition == nullptr ? nullptr : end.definition->Denotes();
  if (named == nullptr) return {end.declaration, end.primitive, false};
  return {nullptr, std::string(named->Predefined()), named->isMadeOfElements()};
}

}  // namespace mdktoidl
