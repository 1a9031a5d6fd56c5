#include "tree/interface.h"

#include <unordered_set>

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "output/separated.h"
#include "tree/interface_members.h"
#include "types/elements.h"
#include "types/marking.h"
#include "types/properties.h"

namespace mdktoidl {

Interface::Interface(mdk::IMdeEntity* element, Container* parent) : OrderedScope(element, parent) {
  CreateNodeRef();
  AdoptMembers(InterfaceMembers());
}

bool Interface::isAbstract() const {
  return Entity()->GetValue(properties::isAbstract, 0) == "true";
}

bool Interface::isLocal() const {
  static const std::string expression = "CORBAInterface (. isLocal .)";
  return TaggedLiteral(Entity(), expression, "false") != "false";
}

void Interface::CollectGeneralizations(NodeList& result) const {
  std::unordered_set<const Node*> present;
  for (mdk::IMdeEntity* generalization : Elements(Entity(), properties::generalization)) {
    mdk::IMdeEntity* parent = generalization->GetEntity(properties::parent, 0);
    if (parent == nullptr) continue;
    Node* node = GetNodeRef(parent);
    if (node == nullptr) {
      Report(Message::interfaceSupertypeNotExported, {ScopedName("::")});
    } else if (present.insert(node).second) {
      result.push_back(node);
    }
  }
}

void Interface::EvaluateTypes(NodeList& deps) {
  EvaluateChildren(deps);
  CollectGeneralizations(generalizations);
  for (const Node* node : generalizations) parentNames.push_back(NameHere(*node));
  JoinList(generalizations, deps);
  Sort();
}

void Interface::UnparseKind(std::ofstream& out) const {
  if (isAbstract()) {
    out << "abstract ";
  } else if (isLocal()) {
    out << "local ";
  }
  out << "interface " << Name();
}

void Interface::Unparse(std::ofstream& out) {
  UnparseHeading(out);
  UnparseKind(out);
  if (!parentNames.empty()) {
    out << " : ";
    WriteSeparated(parentNames, out);
  }
  UnparseBody(out);
}

void Interface::UnparseForward(std::ofstream& out) const {
  newline(out);
  UnparseKind(out);
  out << ';';
}

}  // namespace mdktoidl
