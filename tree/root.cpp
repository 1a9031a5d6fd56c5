#include "tree/root.h"

#include "agent/message_output.h"
#include "options/options.h"
#include "output/layout.h"

namespace mdktoidl {

Root* root = nullptr;

void Root::EvaluateTypes() {
  NodeList deps;
  EvaluateTypes(deps);
}

void Root::EvaluateTypes(NodeList& deps) {
  EvaluateChildren(deps);
  for (const auto& child : children) allModules = allModules && child->isModule();
  Sort();
}

void Root::Unparse(std::ofstream& out) {
  const bool oneFile = options.Mapping() == ONE_FILE;
  const bool skipOwn = !oneFile && allModules;
  if (!skipOwn) {
    newline(out);
    UnparseForwards(out);
    for (Node* child : sorted) {
      if (oneFile || !child->isModule()) UnparseNode(*child, out);
    }
  }
  if (oneFile) return;
  for (Node* child : sorted) {
    if (child->isModule()) child->Unparse(out);
  }
}

void Root::UnparseNode(Node& node, std::ofstream& out) const {
  // Users' scripts know the stray "3" for a declaration outside all modules; it is deliberate.
  if (options.Mapping() != ONE_FILE) Print("3");
  node.Unparse(out);
}

}  // namespace mdktoidl
