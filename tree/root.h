// The tree of one run: the declarations that the exported artifact names.
#pragma once

#include "tree/ordered_scope.h"

namespace mdktoidl {

class Root : public OrderedScope {
 public:
  explicit Root(mdk::IMdeEntity* artifact) : OrderedScope(artifact, nullptr) {}

  /// Appends a declaration; the root owns it from then on.
  void AddNode(std::unique_ptr<Node> node) { Adopt(std::move(node)); }

  /// Evaluates the whole tree: types, rules and order.
  void EvaluateTypes();

  /// Writes the whole tree. `out` is the open main file; with a file for each module it is the last
  /// of those, or closed, on return.
  void Unparse(std::ofstream& out) override;

 private:
  void EvaluateTypes(NodeList& deps) override;
  void UnparseNode(Node& node, std::ofstream& out) const;

  bool allModules = true;
};

/// The tree of the current run; null between runs.
extern Root* root;

}  // namespace mdktoidl
