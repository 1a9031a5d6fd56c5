#include "tree/interfaces.h"

#include <unordered_set>
#include <utility>
#include <vector>

#include "tree/data_types.h"
#include "tree/members.h"
#include "tree/type_definitions.h"
#include "tree/unions.h"
#include "types/elements.h"

namespace mdktoidl {

namespace {

bool isInterfaceAttribute(mdk::IMdeEntity* member) {
  return isPublic(member) && hasStereotype(member, stereotypes::corbaAttribute);
}

bool isInterfaceConstant(mdk::IMdeEntity* member) {
  return isInterfaceAttribute(member) && isConstant(member);
}

bool isAny(mdk::IMdeEntity*) { return true; }

/// The rows for nested types, operations and signals, which are the same for all that nest them;
/// attributes differ.
Classification WithNestedDeclarations(ClassificationRow attributes) {
  return {
      std::move(attributes),
      {metaclasses::dataType, {{Carries<stereotypes::corbaEnum>, Make<Enumeration>}}},
      {metaclasses::classifier,
       {{Carries<stereotypes::corbaStruct>, Make<Struct>},
        {Carries<stereotypes::corbaUnion>, Make<Union>},
        {Carries<stereotypes::corbaException>, Make<Exception>},
        {Carries<stereotypes::corbaTypedef>, Make<Typedef>},
        {Carries<stereotypes::corbaSequence>, Make<Sequence>}}},
      {metaclasses::operation, {{isPublic, Make<Operation>}}},
      {metaclasses::signal, {{isPublic, Make<Operation>}}},
      {metaclasses::syntype,
       {{Carries<stereotypes::corbaTypedef>, Make<Typedef>},
        {Carries<stereotypes::corbaBoxedValue>, Make<BoxedValue>}}},
  };
}

const Classification& ValueMembers() {
  static const Classification table =
      WithNestedDeclarations({metaclasses::attribute,
                              {{isInterfaceConstant, Make<Constant>},
                               {isInterfaceAttribute, Make<Attribute>},
                               {isAny, Make<State>}}});
  return table;
}

}  // namespace

const Classification& InterfaceMembers() {
  static const Classification table = WithNestedDeclarations(
      {metaclasses::attribute, {{isPublicConstant, Make<Constant>}, {isPublic, Make<Attribute>}}});
  return table;
}

Interface::Interface(mdk::IMdeEntity* element, Container* parent) : OrderedScope(element, parent) {
  CreateNodeRef();
  AdoptMembers(InterfaceMembers());
}

bool Interface::isAbstract() const {
  return Entity()->GetValue(properties::isAbstract, 0) == "true";
}

bool Interface::isLocal() const {
  return TaggedLiteral(Entity(), tags::isLocal, "false") != "false";
}

namespace {

/// The interface that a use means, through type definitions; null for anything else.
const Interface* InterfaceOf(const Use& use) {
  const Node* declaration = Unaliased(*use.used).declaration;
  return declaration == nullptr ? nullptr : declaration->AsInterface();
}

bool isConcreteInterface(const Use& use) {
  const Interface* interface = InterfaceOf(use);
  return interface != nullptr && !interface->isAbstract();
}

bool isConcreteValue(const Use& use) {
  const Value* value = use.used->AsValue();
  return value != nullptr && !value->isAbstract();
}

/// Calls `take` with each generalization that has a parent, and that.
template <typename Take>
void ForEachParent(mdk::IMdeEntity* element, Take take) {
  for (mdk::IMdeEntity* generalization : Elements(element, properties::generalization)) {
    mdk::IMdeEntity* parent = generalization->GetEntity(properties::parent, 0);
    if (parent != nullptr) take(generalization, parent);
  }
}

}  // namespace

void Interface::CollectGeneralizations() {
  std::unordered_set<const Node*> present;
  ForEachParent(Entity(), [&](mdk::IMdeEntity*, mdk::IMdeEntity* parent) {
    Node* node = GetNodeRef(parent);
    if (node == nullptr) {
      Report(Message::interfaceSupertypeNotExported);
    } else if (present.insert(node).second) {
      AddUse(*node, UseRole::base);
    }
  });
}

Expectation Interface::Expects(UseRole role) const {
  return role == UseRole::base ? Expectation{meanings::interface, "interface"}
                               : Node::Expects(role);
}

void Interface::CheckLegality(const ConstantNames&) const {
  const bool isAbstractHere = isAbstract();
  for (const Use& use : uses) {
    const Interface* base = use.role == UseRole::base ? InterfaceOf(use) : nullptr;
    if (base == nullptr) continue;
    const bool isAbstractBase = base->isAbstract();
    if (isAbstractHere && !isAbstractBase) {
      Report(Message::interfaceBaseNotAbstract, {ScopedName("::"), base->Described()}, *base,
             "declared here");
    } else if (!isAbstractHere && !isLocal() && !isAbstractBase && base->isLocal()) {
      Report(Message::interfaceBaseLocal, {ScopedName("::"), base->Described()}, *base,
             "declared here");
    }
  }
}

void Interface::ResolveTypes(NodeList& deps) {
  EvaluateAndSort(deps);
  CollectGeneralizations();
}

void Interface::UnparseKind(Writer& out) const {
  if (isAbstract()) {
    out << "abstract ";
  } else if (isLocal()) {
    out << "local ";
  }
  out << "interface " << Written();
}

void Interface::Unparse(Writer& out) const {
  UnparseHeading(out);
  UnparseKind(out);
  if (uses.Has(UseRole::base)) {
    out << " : ";
    uses.Write(UseRole::base, out);
  }
  UnparseBody(out);
}

void Interface::UnparseForward(Writer& out) const {
  newline(out);
  UnparseKind(out);
  out << ';';
}

Value::Value(mdk::IMdeEntity* element, Container* parent) : OrderedScope(element, parent) {
  if (hasStereotype(element, stereotypes::corbaEvent)) kindWord = "event";
  CreateNodeRef();
  AdoptMembers(ValueMembers());
}

void Value::ResolveKind() {
  abstract = Entity()->GetValue(properties::isAbstractValue, 0) == "true";
  custom = isTagTrue(Entity(), tags::isCustom);
  if (abstract && custom) {
    Report(Message::valueIsAbstractAndCustom, {kindWord, ScopedName("::")});
  }
}

// Of several truncatable bases the last one counts, and it stands before all others: IDL knows one,
// and wants it there.
void Value::CollectGeneralizations() {
  std::unordered_set<const Node*> present;
  std::vector<Node*> bases;
  Node* truncatable = nullptr;
  ForEachParent(Entity(), [&](mdk::IMdeEntity* generalization, mdk::IMdeEntity* parent) {
    if (!hasStereotype(parent, stereotypes::corbaValue) &&
        !hasStereotype(parent, stereotypes::corbaEvent)) {
      return;
    }
    Node* node = GetNodeRef(parent);
    if (node == nullptr) {
      Report(Message::valueSupertypeNotExported, {kindWord, ScopedName("::")});
    } else if (hasStereotype(generalization, stereotypes::corbaTruncatable)) {
      if (custom) Report(Message::valueIsCustomAndTruncated, {kindWord, ScopedName("::")});
      truncatable = node;
    } else if (present.insert(node).second) {
      bases.push_back(node);
    }
  });
  if (truncatable != nullptr) AddUse(*truncatable, UseRole::base).isTruncatable = true;
  for (Node* base : bases) AddUse(*base, UseRole::base);
}

void Value::CollectSupports() {
  std::unordered_set<const Node*> present;
  ForEachParent(Entity(), [&](mdk::IMdeEntity* generalization, mdk::IMdeEntity* parent) {
    if (!hasStereotype(parent, stereotypes::corbaInterface)) {
      if (hasStereotype(generalization, stereotypes::corbaSupports)) {
        Report(Message::valueSupportsOther, {kindWord, ScopedName("::")});
      }
      return;
    }
    Node* node = GetNodeRef(parent);
    if (node == nullptr) {
      Report(Message::valueSupertypeNotExported, {kindWord, ScopedName("::")});
    } else if (present.insert(node).second) {
      AddUse(*node, UseRole::supports);
    }
  });
}

Meanings Value::Means() const {
  return meanings::type | (kindWord == "event" ? meanings::event : meanings::value);
}

Expectation Value::Expects(UseRole role) const {
  if (role != UseRole::base) return Node::Expects(role);
  return {meanings::value | meanings::event, "value type"};
}

const Interface* Value::SupportedInterface() const {
  for (const Use& use : uses) {
    if (use.role == UseRole::supports && isConcreteInterface(use)) return InterfaceOf(use);
  }
  return nullptr;
}

// The one base, and the one supported interface, that isn't abstract has to be the first. What can
// be truncated stands there already.
void Value::BringForward(UseRole role, bool (*isConcrete)(const Use&)) {
  const Use* first = uses.First(role);
  if (first == nullptr || first->isTruncatable || isConcrete(*first)) return;
  for (Use& use : uses) {
    if (use.role != role || !isConcrete(use)) continue;
    uses.BringForward(use);
    return Report(Message::valueBasesReordered,
                  {kindWord, ScopedName("::"), use.used->Described()});
  }
}

void Value::Repair(const ConstantNames&) {
  forwardWord = kindWord;
  BringForward(UseRole::base, isConcreteValue);
  BringForward(UseRole::supports, isConcreteInterface);
}

void Value::CheckBases() const {
  const Use* first = uses.First(UseRole::base);
  for (const Use& use : uses) {
    const Value* base = use.role == UseRole::base ? use.used->AsValue() : nullptr;
    if (base == nullptr) continue;
    const auto report = [&](Message message) {
      Report(message, {kindWord, ScopedName("::"), base->Described()}, *base, "declared here");
    };
    if (abstract && !base->abstract) {
      report(Message::valueAbstractOfConcrete);
    } else if (!base->abstract && &use != first) {
      report(use.used == first->used ? Message::valueBaseTwice : Message::valueBaseNotFirst);
    } else if (&use != first && use.used == first->used) {
      report(Message::valueBaseTwice);
    } else if (!custom && !abstract && base->custom) {
      report(Message::valueOfCustom);
    }
  }
}

void Value::CheckSupports() const {
  const Interface* first = SupportedInterface();
  for (const Use& use : uses) {
    if (use.role != UseRole::supports || !isConcreteInterface(use)) continue;
    if (InterfaceOf(use) == first) continue;
    Report(Message::valueSupportsMore,
           {kindWord, ScopedName("::"), first->Described(), use.used->Described()}, *use.used,
           "declared here");
  }
}

void Value::CheckLegality(const ConstantNames&) const {
  CheckBases();
  CheckSupports();
  if (!abstract) return;
  for (const auto& child : children) {
    if ((child->Means() & (meanings::state | meanings::factory)) == 0) continue;
    child->Report(Message::valueAbstractHolds, {child->Described(), Described()});
  }
}

void Value::ResolveTypes(NodeList& deps) {
  ResolveKind();
  EvaluateAndSort(deps);
  CollectSupports();
  CollectGeneralizations();
}

void Value::UnparseBases(Writer& out) const {
  if (uses.Has(UseRole::base)) {
    out << (uses.First(UseRole::base)->isTruncatable ? " : truncatable " : " : ");
    uses.Write(UseRole::base, out);
  }
  if (uses.Has(UseRole::supports)) {
    out << " supports ";
    uses.Write(UseRole::supports, out);
  }
}

void Value::Unparse(Writer& out) const {
  UnparseHeading(out);
  if (abstract) out << "abstract ";
  if (custom) out << "custom ";
  out << kindWord << "type " << Written();
  UnparseBases(out);
  UnparseBody(out);
}

// In the plain form an event type's forward declaration says "valuetype", too. That is deliberate:
// files in use are written so.
void Value::UnparseForward(Writer& out) const {
  newline(out);
  if (abstract) out << "abstract ";
  out << forwardWord << "type " << Written() << ';';
}

}  // namespace mdktoidl
