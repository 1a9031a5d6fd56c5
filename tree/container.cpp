#include "tree/container.h"

#include <algorithm>
#include <list>

#include "output/layout.h"
#include "tree/classification.h"
#include "tree/node_registry.h"
#include "types/elements.h"
#include "types/properties.h"

namespace mdktoidl {

void Container::Adopt(std::unique_ptr<Node> child) {
  child->lastSerial = nodeRegistry.LastSerial();
  child->position = static_cast<std::uint32_t>(children.size());
  children.push_back(std::move(child));
}

void Container::AdoptMembers(const Classification& table) {
  const std::list<mdk::IMdeEntity*> members = Elements(Entity(), properties::ownedMember);
  children.reserve(members.size());
  for (mdk::IMdeEntity* member : members) {
    if (auto node = Classify(table, member, this)) Adopt(std::move(node));
  }
}

Node* Container::ChildEnclosing(const Node& node) const {
  const auto startsBehind = [](std::uint32_t serial, const std::unique_ptr<Node>& child) {
    return serial < child->Serial();
  };
  const auto behind =
      std::upper_bound(children.begin(), children.end(), node.Serial(), startsBehind);
  if (behind == children.begin()) return nullptr;
  Node* child = std::prev(behind)->get();
  return node.Serial() <= child->LastSerial() ? child : nullptr;
}

void Container::ObserveReferences(const Node&, const NodeList&) {}

// The list is emptied for each child: what one leaves over can't become a dependency of the next,
// and is not sorted again for each of its siblings.
void Container::EvaluateChildren(NodeList& outside) {
  NodeList deps;
  for (const auto& child : children) {
    deps.clear();
    child->EvaluateTypes(deps);
    if (deps.empty()) continue;
    ObserveReferences(*child, deps);
    child->MoveLocalDeclarations(*this, deps);
    JoinList(deps, outside);
  }
  SortByCreation(outside);
}

void Container::UnparseBody(std::ofstream& out) const {
  Write(out, {" {"});
  indent(out);
  UnparseMembers(out);
  redent(out);
  Line line(out);
  newline(line);
  Write(line, {"};"});
}

void Container::UnparseMembers(std::ofstream& out) const {
  for (const auto& child : children) child->Unparse(out);
}

}  // namespace mdktoidl
