#include "tree/homes.h"

#include <algorithm>
#include <array>
#include <string>

#include "tree/interfaces.h"
#include "tree/node_registry.h"
#include "types/elements.h"
#include "types/one_line.h"

namespace mdktoidl {

namespace {

/// The node of the supplier of a relationship of which a declaration may have one only; null when
/// there is none, or it is no part of the export. Reports `more` for several; the first counts.
Node* SingleSupplier(const Node& client, const Stereotype& stereotype, Message more) {
  const std::list<mdk::IMdeEntity*> suppliers = Suppliers(client.Entity(), stereotype);
  if (suppliers.empty()) return nullptr;
  if (suppliers.size() > 1) client.Report(more);
  return Node::GetNodeRef(suppliers.front());
}

}  // namespace

Home::Home(mdk::IMdeEntity* element, Container* parent) : OrderedScope(element, parent) {
  CreateNodeRef();
  AdoptMembers(InterfaceMembers());
}

void Home::CollectGeneralizations() {
  std::unordered_set<const Node*> supported;
  for (mdk::IMdeEntity* generalization : Elements(Entity(), properties::generalization)) {
    mdk::IMdeEntity* parent = generalization->GetEntity(properties::parent, 0);
    if (parent != nullptr) CollectSupertype(parent, supported);
  }
}

void Home::CollectSupertype(mdk::IMdeEntity* parent, std::unordered_set<const Node*>& supported) {
  const bool isHome = hasStereotype(parent, stereotypes::corbaHome);
  if (!isHome && !hasStereotype(parent, stereotypes::corbaInterface)) {
    return Report(Message::homeSupertypeNotProper);
  }
  if (isHome && baseElement != nullptr) {
    if (parent != baseElement) Report(Message::homeHasMoreBases);
    return;
  }
  Node* node = GetNodeRef(parent);
  if (node == nullptr) Report(Message::interfaceSupertypeNotExported);
  if (isHome) baseElement = parent;
  if (node == nullptr) return;
  if (isHome) {
    AddUse(*node, UseRole::base);
  } else if (supported.insert(node).second) {
    AddUse(*node, UseRole::supports);
  }
}

Expectation Home::Expects(UseRole role) const {
  return role == UseRole::base ? Expectation{meanings::home, "home"} : Node::Expects(role);
}

void Home::ResolveTypes(NodeList& deps) {
  EvaluateAndSort(deps);
  CollectGeneralizations();
  Node* component = SingleSupplier(*this, stereotypes::corbaManages, Message::homeManagesMore);
  if (component == nullptr) {
    Report(Message::homeManagesNone);
  } else {
    AddUse(*component, UseRole::manages);
  }
  Node* key = SingleSupplier(*this, stereotypes::corbaPrimaryKey, Message::homeHasMoreKeys);
  if (key != nullptr) AddUse(*key, UseRole::primaryKey);
}

void Home::UnparseUse(UseRole role, std::string_view keyword, Writer& out) const {
  if (!uses.Has(role)) return;
  out << keyword;
  uses.Write(role, out);
}

void Home::Unparse(Writer& out) const {
  UnparseHeading(out);
  out << "home " << Written();
  UnparseUse(UseRole::base, " : ", out);
  UnparseUse(UseRole::supports, " supports ", out);
  UnparseUse(UseRole::manages, " manages ", out);
  UnparseUse(UseRole::primaryKey, " primarykey ", out);
  UnparseBody(out);
}

ComponentImpl::ComponentImpl(mdk::IMdeEntity* element, Container* parent)
    : Container(element, parent) {
  CreateNodeRef();
  for (mdk::IMdeEntity* member : Elements(element, properties::ownedMember)) {
    if (member->IsKindOf(metaclasses::classifier)) AdoptMember(member);
  }
  if (homeExecutor == nullptr) Report(Message::compositionLacksHomeExecutor);
  mdk::IMdeEntity* composite = element->EvalExpression(tags::composite.Expression(), 0);
  if (composite != nullptr) {
    compositionName = nodeRegistry.Store(composite->GetValue(properties::valueString, 0));
  }
  if (compositionName.empty()) compositionName = Name();
  nodeRegistry.Rename(Serial(), compositionName);
}

// A second home executor is told of and left out: no other declaration may mean it.
void ComponentImpl::AdoptMember(mdk::IMdeEntity* member) {
  if (isMarked(member, stereotypes::corbaHomeImpl)) {
    if (homeExecutor != nullptr) return Report(Message::compositionHasMoreHomeExecutors);
    auto executor = MakeNode<HomeImpl>(member, this);
    homeExecutor = executor.get();
    Adopt(std::move(executor));
  } else if (isMarked(member, stereotypes::corbaSegment)) {
    auto segment = MakeNode<Segment>(member, this);
    segments.push_back(segment.get());
    Adopt(std::move(segment));
  }
}

std::string ComponentImpl::Category() const {
  return TaggedLiteral(Entity(), tags::category, "session");
}

void ComponentImpl::ResolveTypes(NodeList& deps) {
  EvaluateChildren(deps);
  if (homeExecutor != nullptr && !homeExecutor->isComplete()) {
    Report(Message::compositionLacksHomeExecutor);
  }
  Node* component =
      SingleSupplier(*this, stereotypes::corbaImplements, Message::compositionImplementsMore);
  if (component != nullptr) AddUse(*component, UseRole::implements, Spelling::none);
  const std::string category = Category();
  if (!segments.empty() && category != "process" && category != "entity") {
    Report(Message::compositionCannotBeSegmented);
  }
}

// A component whose ancestry is wider than one line has been told of already.
void ComponentImpl::CheckLegality(const ConstantNames&) const {
  constexpr std::array<std::string_view, 4> categories = {"entity", "process", "service",
                                                          "session"};
  const std::string category = Category();
  if (std::ranges::find(categories, category) == categories.end()) {
    Report(Message::compositionCategoryUnknown, {ScopedName("::"), OneLine(category)});
  }
  const Node* component = homeExecutor == nullptr ? nullptr : homeExecutor->Component();
  if (component == nullptr) return;
  for (const Segment* segment : segments) segment->CheckFacets(*component);
}

void ComponentImpl::Unparse(Writer& out) const {
  UnparseHeading(out);
  out << "composition " << Category() << ' ' << Written();
  UnparseBody(out);
}

void ComponentImpl::UnparseMembers(Writer& out) const {
  homeExecutor->UnparseExecutor(segments, out);
}

void HomeImpl::ResolveTypes(NodeList&) {
  Node* home =
      SingleSupplier(*this, stereotypes::corbaImplements, Message::homeExecutorImplementsMore);
  Node* managed =
      SingleSupplier(*this, stereotypes::corbaManages, Message::homeExecutorManagesMore);
  if (home != nullptr) AddUse(*home, UseRole::implements);
  if (managed == nullptr) return;
  // The enclosing implementation is no dependency: it is being declared here.
  AddUse(*managed, UseRole::manages).isDependency = managed != Scope();
}

Expectation HomeImpl::Expects(UseRole role) const {
  if (role == UseRole::implements) return {meanings::home, "home"};
  if (role == UseRole::manages) return {meanings::composition, "component implementation"};
  return Node::Expects(role);
}

const Node* HomeImpl::Component() const {
  const Use* home = uses.First(UseRole::implements);
  const Use* component = home == nullptr ? nullptr : home->used->Used().First(UseRole::manages);
  const bool isComponent =
      component != nullptr && (component->used->Means() & meanings::component) != 0;
  return isComponent ? component->used : nullptr;
}

void HomeImpl::UnparseExecutor(std::span<const Segment* const> segments, Writer& out) const {
  UnparseComment(Entity(), out);
  newline(out);
  out << "home executor " << Written() << " {";
  indent(out);
  newline(out);
  out << "implements ";
  uses.Write(UseRole::implements, out);
  out << ';';
  UnparseManaged(segments, out);
  redent(out);
  newline(out);
  out << "};";
}

void HomeImpl::UnparseManaged(std::span<const Segment* const> segments, Writer& out) const {
  newline(out);
  out << "manages ";
  uses.Write(UseRole::manages, out);
  if (!segments.empty()) {
    out << " {";
    indent(out);
    for (const Segment* segment : segments) segment->UnparseSegment(out);
    redent(out);
    newline(out);
    out << '}';
  }
  out << ';';
}

bool Segment::isDeclared() const { return Enclosing() != nullptr && !Enclosing()->isModule(); }

void Segment::ResolveTypes(NodeList&) {
  if (Elements(Entity(), properties::clientDependency).empty()) {
    return Report(Message::segmentHasNoDependencies);
  }
  for (mdk::IMdeEntity* supplier : Suppliers(Entity(), stereotypes::corbaIsProvidedBy)) {
    if (Node* node = GetNodeRef(supplier)) AddUse(*node, UseRole::provides, Spelling::simple);
  }
  if (!uses.Has(UseRole::provides)) Report(Message::segmentProvidesNothing);
}

void Segment::Repair(const ConstantNames&) {
  if (!isDeclared()) return;
  isInGrammar = true;
  Report(Message::segmentWritten);
}

void Segment::CheckFacets(const Node& component) const {
  std::unordered_set<const Node*> ancestry;
  const Node* each = &component;
  while (each != nullptr && ancestry.insert(each).second) {
    const Use* base = each->Used().First(UseRole::base);
    each = base == nullptr ? nullptr : base->used;
  }
  for (const Use& use : uses) {
    const bool isFacet = (use.used->Means() & meanings::facet) != 0;
    if (!isFacet || ancestry.contains(use.used->Enclosing())) continue;
    Report(Message::segmentFacetForeign,
           {ScopedName("::"), use.used->Described(), component.Described()}, *use.used,
           "declared here");
  }
}

// The plain form deliberately lacks a keyword and has a semicolon too much: files in use are
// written so, and no compiler takes them.
void Segment::UnparseSegment(Writer& out) const {
  UnparseComment(Entity(), out);
  newline(out);
  out << "segment " << Written() << " { provides " << (isInGrammar ? "facet " : "");
  uses.Write(UseRole::provides, out);
  out << (isInGrammar ? "; }" : "; };");
}

}  // namespace mdktoidl
