#include "tree/home.h"

#include "agent/diagnostics.h"
#include "output/separated.h"
#include "tree/interface_members.h"
#include "tree/single_supplier.h"
#include "types/elements.h"
#include "types/properties.h"

namespace mdktoidl {

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
  const bool isHome = parent->HasStereotype("CORBAHome", 0);
  if (!isHome && !parent->HasStereotype("CORBAInterface", 0)) {
    Report(Message::homeSupertypeNotProper, {ScopedName("::")});
    return;
  }
  if (isHome && baseElement != nullptr) {
    if (parent != baseElement) Report(Message::homeHasMoreBases, {ScopedName("::")});
    return;
  }
  Node* node = GetNodeRef(parent);
  if (node == nullptr) Report(Message::interfaceSupertypeNotExported, {ScopedName("::")});
  if (isHome) {
    baseElement = parent;
    baseHome = node;
  } else if (node != nullptr && supported.insert(node).second) {
    supports.push_back(node);
  }
}

void Home::EvaluateTypes(NodeList& deps) {
  EvaluateChildren(deps);
  CollectGeneralizations();
  component = SingleSupplier(*this, "CORBAManages", Message::homeManagesMore);
  if (component == nullptr) Report(Message::homeManagesNone, {ScopedName("::")});
  primaryKey = SingleSupplier(*this, "CORBAPrimaryKey", Message::homeHasMoreKeys);
  JoinList(supports, deps);
  for (Node* node : {baseHome, component, primaryKey}) {
    if (node != nullptr) deps.push_back(node);
  }
  Sort();
}

void Home::Unparse(std::ofstream& out) {
  UnparseHeading(out);
  out << "home " << Name();
  if (baseHome != nullptr) out << " : " << NameHere(*baseHome);
  if (!supports.empty()) {
    out << " supports ";
    WriteSeparated(supports, out, [&](const Node* node) { out << NameHere(*node); });
  }
  if (component != nullptr) out << " manages " << NameHere(*component);
  if (primaryKey != nullptr) out << " primarykey " << NameHere(*primaryKey);
  UnparseBody(out);
}

}  // namespace mdktoidl
