#include "tree/components.h"

#include "tree/classification.h"
#include "tree/members.h"
#include "types/elements.h"

namespace mdktoidl {

namespace {

const Classification& ComponentMembers() {
  static const Classification table = {
      {metaclasses::attribute, {{isPublic, Make<Attribute>}}},
      {metaclasses::port,
       {{Has<stereotypes::corbaFacet>, Make<Facet>},
        {Has<stereotypes::corbaReceptacle>, Make<Receptacle>},
        {Has<stereotypes::corbaEventSource>, Make<EventSource>},
        {Has<stereotypes::corbaEventSink>, Make<EventSink>}}},
  };
  return table;
}

}  // namespace

Component::Component(mdk::IMdeEntity* element, Container* parent) : Container(element, parent) {
  CreateNodeRef();
  AdoptMembers(ComponentMembers());
  for (mdk::IMdeEntity* member : Elements(element, properties::ownedMember)) {
    if (member->IsKindOf(metaclasses::operation)) Report(Message::componentHasOperation);
  }
}

// The first component counts as the base, also when it is no part of the export and so is left out.
void Component::CollectGeneralizations() {
  bool hasBase = false;
  for (mdk::IMdeEntity* generalization : Elements(Entity(), properties::generalization)) {
    mdk::IMdeEntity* parent = generalization->GetEntity(properties::parent, 0);
    if (parent == nullptr) continue;
    Node* node = GetNodeRef(parent);
    if (hasStereotype(parent, stereotypes::corbaComponent)) {
      if (hasBase) {
        Report(Message::componentHasMoreBases);
      } else if (node != nullptr) {
        AddUse(*node, UseRole::base);
      }
      hasBase = true;
    } else if (node != nullptr && hasStereotype(parent, stereotypes::corbaInterface)) {
      AddUse(*node, UseRole::supports);
    }
  }
}

Expectation Component::Expects(UseRole role) const {
  return role == UseRole::base ? Expectation{meanings::component, "component"}
                               : Node::Expects(role);
}

void Component::ResolveTypes(NodeList& deps) {
  EvaluateChildren(deps);
  CollectGeneralizations();
}

void Component::Unparse(Writer& out) const {
  UnparseHeading(out);
  out << "component " << Written();
  if (const Use* base = uses.First(UseRole::base)) out << " : " << *base;
  if (uses.Has(UseRole::supports)) {
    out << " supports ";
    uses.Write(UseRole::supports, out);
  }
  UnparseBody(out);
}

void Component::UnparseForward(Writer& out) const {
  newline(out);
  out << "component " << Written() << ';';
}

// The type is deliberately written by its simple name, wherever it is declared: files in use are
// written so. Where that name means nothing, the checks of names say so.
void Port::ResolveTypes(NodeList&) {
  const PortRules& rules = Rules();
  const std::list<mdk::IMdeEntity*> types = Elements(Entity(), rules.typing);
  if (types.empty()) {
    Report(rules.lacksType);
  } else {
    if (types.size() > 1) Report(rules.hasTooMany, {Name()});
    if (Node* node = GetNodeRef(types.front())) AddUse(*node, UseRole::port, Spelling::simple);
  }
  if (!Elements(Entity(), rules.forbidden).empty()) Report(rules.hasForbidden);
}

void Port::Unparse(Writer& out) const {
  const Use* used = uses.First(UseRole::port);
  if (used == nullptr) return;
  newline(out);
  out << Keywords() << *used << ' ' << Written() << ';';
}

namespace {

constexpr Expectation anInterface{meanings::interface, "interface"};
constexpr Expectation anEventType{meanings::event, "event type"};

}  // namespace

const PortRules& Facet::Rules() const {
  static const PortRules rules = {properties::realized,         properties::required,
                                  Message::facetLacksInterface, Message::facetRequires,
                                  Message::portRealizesTooMany, anInterface};
  return rules;
}

const PortRules& Receptacle::Rules() const {
  static const PortRules rules = {
      properties::required,        properties::realized,         Message::receptacleLacksInterface,
      Message::receptacleRealizes, Message::portRequiresTooMany, anInterface};
  return rules;
}

bool Receptacle::IsMultiple() const { return isTagTrue(Entity(), tags::isMultiple); }

const PortRules& EventSource::Rules() const {
  static const PortRules rules = {properties::required,          properties::realized,
                                  Message::eventSourceLacksType, Message::eventSourceRealizes,
                                  Message::portRequiresTooMany,  anEventType};
  return rules;
}

bool EventSource::IsEmitter() const {
  return TaggedLiteral(Entity(), tags::sourceKind, "") == "Emitter";
}

const PortRules& EventSink::Rules() const {
  static const PortRules rules = {properties::realized,         properties::required,
                                  Message::eventSinkLacksType,  Message::eventSinkRequires,
                                  Message::portRealizesTooMany, anEventType};
  return rules;
}

}  // namespace mdktoidl
