// A declaration that owns the declarations inside it.
#pragma once

#include <memory>
#include <vector>

#include "tree/node.h"

namespace mdktoidl {

struct ClassificationRow;

class Container : public Node {
 public:
  using Children = std::vector<std::unique_ptr<Node>>;

  /// The child that is or encloses `node`; null when `node` is not inside this container.
  Node* ChildEnclosing(const Node& node) const;

 protected:
  using Node::Node;

  /// Takes over a child that is complete: everything inside it has been built.
  void Adopt(std::unique_ptr<Node> child);

  /// Builds and takes over a child for every owned member that a table (classification.h) knows.
  void AdoptMembers(const std::vector<ClassificationRow>& table);

  /// Evaluates every child and gives it its dependencies among its siblings; adds to `outside`
  /// what the children refer to outside this container; the list is then sorted by creation.
  void EvaluateChildren(NodeList& outside);

  /// Called for each child that refers to anything outside itself, with all of that, before its
  /// dependencies are taken out.
  virtual void ObserveReferences(const Node& child, const NodeList& references);

  /// Writes the members in braces.
  void UnparseBody(std::ofstream& out) const;
  /// Writes what stands between the braces: here the children in their order.
  virtual void UnparseMembers(std::ofstream& out) const;

  Children children;
};

}  // namespace mdktoidl
