#include "tree/data_types.h"

#include <unordered_set>

#include "agent/idl_exception.h"
#include "tree/node_registry.h"
#include "tree/type_definitions.h"
#include "types/constant_value.h"
#include "types/elements.h"
#include "types/one_line.h"

namespace mdktoidl {

Struct::Struct(mdk::IMdeEntity* element, Container* parent) : Container(element, parent) {
  CreateNodeRef();
  const std::list<mdk::IMdeEntity*> members = Elements(element, properties::ownedMember);
  if (members.empty()) Report(Message::structHasNoMembers);
  children.reserve(members.size());
  for (mdk::IMdeEntity* member : members) {
    if (!member->IsKindOf(metaclasses::attribute) || !isPublic(member)) continue;
    if (isConstant(member)) Report(Message::structHasConstant);
    Adopt(MakeNode<Field>(member, this));
  }
}

void Struct::CheckLegality(const ConstantNames&) const {
  if (!children.empty() || Elements(Entity(), properties::ownedMember).empty()) return;
  Report(Message::structHasNoPublicMembers);
}

void Struct::Unparse(Writer& out) const {
  UnparseHeading(out);
  out << "struct " << Written();
  UnparseBody(out);
}

void Struct::UnparseForward(Writer& out) const {
  newline(out);
  out << "struct " << Written() << ';';
}

Exception::Exception(mdk::IMdeEntity* element, Container* parent) : Container(element, parent) {
  CreateNodeRef();
  for (mdk::IMdeEntity* member : OwnedAttributes(element)) {
    if (isPublic(member)) Adopt(MakeNode<Field>(member, this));
  }
}

void Exception::Unparse(Writer& out) const {
  UnparseHeading(out);
  out << "exception " << Written();
  UnparseBody(out);
}

void Field::Unparse(Writer& out) const {
  UnparseComment(Entity(), out);
  newline(out);
  out << type << ' ' << Written() << type.DeclaratorSuffix() << ';';
}

Enumeration::Enumeration(mdk::IMdeEntity* element, Container* parent) : Container(element, parent) {
  CreateNodeRef();
  const std::list<mdk::IMdeEntity*> literals = Elements(element, properties::literal);
  children.reserve(literals.size());
  for (mdk::IMdeEntity* literal : literals) Adopt(MakeNode<Enumerator>(literal, this));
}

void Enumeration::IndexLiterals() const {
  if (!byElement.empty()) return;
  for (const auto& child : children) {
    auto* literal = static_cast<Enumerator*>(child.get());
    byName.try_emplace(literal->Name(), literal);
    byElement.try_emplace(literal->Entity(), literal);
  }
}

Enumerator* Enumeration::FindLiteral(std::string_view name) const {
  IndexLiterals();
  const auto found = byName.find(name);
  return found == byName.end() ? nullptr : found->second;
}

Enumerator* Enumeration::FindLiteral(const mdk::IMdeEntity* element) const {
  IndexLiterals();
  const auto found = byElement.find(element);
  return found == byElement.end() ? nullptr : found->second;
}

void Enumeration::CheckLegality(const ConstantNames&) const {
  if (children.empty()) Report(Message::enumHasNoEnumerators);
}

void Enumeration::Unparse(Writer& out) const {
  UnparseHeading(out);
  out << "enum " << Written();
  UnparseBody(out);
}

void Enumeration::UnparseMembers(Writer& out) const {
  newline(out);
  std::string_view separator;
  for (const auto& literal : children) {
    out << separator;
    if (!separator.empty()) newline(out);
    literal->Unparse(out);
    separator = ", ";
  }
}

void Constant::ResolveTypes(NodeList&) {
  if (hasMultiplicity(Entity())) Report(Message::constantHasMultiplicity);
  if (ResolveTypeOfConstant()) ResolveValue();
}

bool Constant::ResolveTypeOfConstant() {
  TypeReference reference;
  LookUpType(Entity(), "constant ", reference);
  reference.multiplicity.hasConstant = false;  // an error, whatever bounds it
  switch (reference.kind) {
    case templateType:
      Report(Message::constantTypeIsTemplate);
      return false;
    case unknownType:
      // Nobody else says so, not even when the constant has no type at all.
      Report(Message::constantTypeUnknown);
      return false;
    default:
      break;
  }
  const bool isExported =
      reference.definition == nullptr || GetNodeRef(reference.definition) != nullptr;
  if (!isExported) Report(Message::constantTypeNotExported);
  UseType(std::move(reference), type);
  return isExported;
}

void Constant::ResolveValue() {
  mdk::IMdeEntity* value = Entity()->GetEntity(properties::defaultValue, 0);
  if (value == nullptr) return Report(Message::constantHasNoValue);
  const std::string metaclass = value->GetMetaclass();
  const bool isExpression =
      metaclass == metaclasses::booleanValue || metaclass == metaclasses::opaqueExpression;
  if (isExpression) Report(Message::constantValueIsExpression);
  if (isExpression || metaclass == metaclasses::realValue ||
      metaclass == metaclasses::integerValue || metaclass == metaclasses::characterValue ||
      metaclass == metaclasses::charstringValue) {
    hasText = true;
    valueText = nodeRegistry.Store(value->GetValue(properties::valueString, 0));
  } else if (metaclass == metaclasses::ident) {
    ResolveIdentifier(value);
  } else {
    Report(Message::constantValueNotSupported);
  }
}

void Constant::ResolveIdentifier(mdk::IMdeEntity* identifier) {
  const std::string name = identifier->GetValue(properties::name, 0);
  mdk::IMdeEntity* named = identifier->GetEntity(properties::definition, 0);
  if (named == nullptr) throw IDLException({Message::nameUnresolved, Entity(), {}});
  Node* value = FindValue(named);
  if (value == nullptr) return Report(Message::constantValueNotExported);
  Rename(AddUse(*value, UseRole::value), name);
  VisitedConstants visited;
  if (EvaluateConstant(Entity(), visited).state == ConstantState::circular) {
    Report(Message::constantIsCircular);
  }
}

Node* Constant::FindValue(mdk::IMdeEntity* named) const {
  const Alias base = type.Definition() == nullptr ? Alias() : Unaliased(*type.Definition());
  const Enumeration* enumeration =
      base.declaration == nullptr ? nullptr : base.declaration->AsEnumeration();
  Node* literal = enumeration == nullptr ? nullptr : enumeration->FindLiteral(named);
  return literal != nullptr ? literal : GetNodeRef(named);
}

void Constant::Repair(const ConstantNames&) {
  const std::string base = Base().predefined;
  if (base.empty() || valueText.empty()) return;
  const std::string repaired = LiteralOf(base, valueText);
  if (repaired == valueText) return;
  Report(Message::constantValueRepaired, {ScopedName("::"), OneLine(valueText), repaired});
  valueText = nodeRegistry.Store(repaired);
}

// Every constant on the way remembers the end, so that many users of a long chain cost its length
// once.
const Constant* Constant::Last() const {
  std::unordered_set<const Constant*> passed;
  const Constant* current = this;
  while (current != nullptr && !current->isLastKnown) {
    const bool isCircle = !passed.insert(current).second;
    const Use* named = current->NamedValue();
    const Constant* next = named == nullptr ? nullptr : named->used->AsConstant();
    if (!isCircle && next == nullptr) break;
    current = isCircle ? nullptr : next;
  }
  if (current != nullptr && current->isLastKnown) current = current->last;
  for (const Constant* each : passed) {
    each->last = current;
    each->isLastKnown = true;
  }
  return current;
}

Literal Constant::Value() const {
  const Constant* end = Last();
  return end == nullptr ? Literal() : ReadLiteral(end->valueText);
}

const Node* Constant::ValueAsEnumerator() const {
  const Constant* end = Last();
  const Use* named = end == nullptr ? nullptr : end->NamedValue();
  return named != nullptr && named->used->isEnumerator() ? named->used : nullptr;
}

bool Constant::isValueLegal(const BaseType& base) const {
  if (base.declaration != nullptr) {
    const Node* enumerator = ValueAsEnumerator();
    return enumerator != nullptr && enumerator->Enclosing() == base.declaration;
  }
  return isValueOf(Value(), base.predefined);
}

std::string Constant::TextOfValue() const {
  const Use* named = NamedValue();
  return named == nullptr ? OneLine(valueText) : named->used->Described();
}

void Constant::CheckLegality(const ConstantNames&) const {
  const BaseType base = Base();
  if (!base.isKnown()) return;
  const bool mayBeConstant = base.declaration == nullptr
                                 ? KindOfLiterals(base.predefined) != LiteralKind::none
                                 : base.declaration->AsEnumeration() != nullptr;
  if (!mayBeConstant) {
    return Report(Message::constantTypeHasNoConstants, {ScopedName("::"), base.Text()});
  }
  const Use* named = NamedValue();
  const bool isKnown = (named != nullptr || hasText) && Last() != nullptr;
  if (!isKnown || isValueLegal(base)) return;
  const std::string value = TextOfValue();
  if (named == nullptr) {
    return Report(Message::constantValueUnfit, {ScopedName("::"), value, base.Text()});
  }
  Report(Message::constantValueUnfit, {ScopedName("::"), value, base.Text()}, *named->used,
         "its value is declared here");
}

void Constant::Unparse(Writer& out) const {
  UnparseComment(Entity(), out);
  newline(out);
  out << "const " << type << ' ' << Written() << " = ";
  if (const Use* value = uses.First(UseRole::value)) {
    out << *value;
  } else {
    out << valueText;
  }
  out << ';';
}

}  // namespace mdktoidl
