#include "tree/component.h"

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "output/separated.h"
#include "tree/attribute.h"
#include "tree/classification.h"
#include "tree/port.h"
#include "types/elements.h"
#include "types/properties.h"

namespace mdktoidl {

namespace {

const Classification& ComponentMembers() {
  static const Classification table = {
      {"Attribute", {{isPublic, Make<Attribute>}}},
      {"Port",
       {{[](auto* port) { return port->HasStereotype("CORBAFacet", 0); }, Make<Facet>},
        {[](auto* port) { return port->HasStereotype("CORBAReceptacle", 0); }, Make<Receptacle>},
        {[](auto* port) { return port->HasStereotype("CORBAEventSource", 0); }, Make<EventSource>},
        {[](auto* port) { return port->HasStereotype("CORBAEventSink", 0); }, Make<EventSink>}}},
  };
  return table;
}

}  // namespace

Component::Component(mdk::IMdeEntity* element, Container* parent) : Container(element, parent) {
  CreateNodeRef();
  AdoptMembers(ComponentMembers());
  for (mdk::IMdeEntity* member : Elements(element, properties::ownedMember)) {
    if (member->IsKindOf("Operation")) {
      Report(Message::componentHasOperation, {ScopedName("::")});
    }
  }
}

void Component::CollectGeneralizations() {
  bool hasBase = false;
  for (mdk::IMdeEntity* generalization : Elements(Entity(), properties::generalization)) {
    mdk::IMdeEntity* parent = generalization->GetEntity(properties::parent, 0);
    if (parent == nullptr) continue;
    if (parent->HasStereotype("CORBAComponent", 0)) {
      if (hasBase) {
        Report(Message::componentHasMoreBases, {ScopedName("::")});
      } else {
        baseComponent = GetNodeRef(parent);
      }
      hasBase = true;
    } else if (parent->HasStereotype("CORBAInterface", 0)) {
      if (Node* node = GetNodeRef(parent)) supports.push_back(node);
    }
  }
}

void Component::EvaluateTypes(NodeList& deps) {
  EvaluateChildren(deps);
  CollectGeneralizations();
  if (baseComponent != nullptr) deps.push_back(baseComponent);
  JoinList(supports, deps);
}

void Component::Unparse(std::ofstream& out) {
  UnparseHeading(out);
  out << "component " << Name();
  if (baseComponent != nullptr) out << " : " << NameHere(*baseComponent);
  if (!supports.empty()) {
    out << " supports ";
    WriteSeparated(supports, out, [&](const Node* node) { out << NameHere(*node); });
  }
  UnparseBody(out);
}

void Component::UnparseForward(std::ofstream& out) const {
  newline(out);
  out << "component " << Name() << ';';
}

}  // namespace mdktoidl
