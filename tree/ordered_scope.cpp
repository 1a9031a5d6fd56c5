#include "tree/ordered_scope.h"

#include "agent/diagnostics.h"
#include "output/ordering.h"

namespace mdktoidl {

bool OrderedScope::declares(const std::string& name) const {
  if (names == nullptr) {
    names = std::make_unique<std::unordered_set<std::string>>();
    for (const auto& child : children) names->insert(child->Name());
  }
  return names->contains(name);
}

void OrderedScope::Sort() {
  DependencyGraph graph;
  graph.Reserve(children.size());
  for (const auto& child : children) {
    graph.AddNode();
    for (const Node* dependency : child->Dependencies()) {
      graph.AddDependency(dependency->Position());
    }
  }
  const Ordering ordering = OrderByDependencies(graph);
  sorted.reserve(children.size());
  for (std::size_t position : ordering.order) sorted.push_back(children[position].get());
  for (std::size_t position : ordering.cyclic) {
    Node* node = children[position].get();
    forwards.push_back(node);
    if (!node->hasForward()) Report(Message::cannotBeForward, {node->ScopedName("::")});
  }
}

void OrderedScope::UnparseForwards(std::ofstream& out) const {
  for (const Node* node : forwards) node->UnparseForward(out);
}

void OrderedScope::UnparseMembers(std::ofstream& out) const {
  UnparseForwards(out);
  for (Node* child : sorted) child->Unparse(out);
}

}  // namespace mdktoidl
