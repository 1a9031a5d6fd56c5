// A declaration that owns the declarations inside it.
#pragma once

#include <memory>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "output/ordering.h"
#include "tree/node.h"

namespace mdktoidl {

struct ClassificationRow;

class Container : public Node {
 public:
  using Children = std::vector<std::unique_ptr<Node>>;

  void Number(NodeList& order) override;

  /// The child that is or encloses `node`; null when `node` is not inside this container.
  Node* ChildEnclosing(const Node& node) const;

 protected:
  using Node::Node;

  /// Takes over a child that is complete: everything inside it has been built.
  void Adopt(std::unique_ptr<Node> child);

  /// Builds and takes over a child for every owned member that a table (classification.h) knows.
  void AdoptMembers(const std::vector<ClassificationRow>& table);

  void ResolveTypes(NodeList& deps) override { EvaluateChildren(deps); }

  /// Evaluates every child; adds to `outside` what the children depend on outside this container;
  /// the list is then sorted by creation. Enters the dependencies among the children, by their
  /// positions, into `graph`, unless that is null.
  void EvaluateChildren(NodeList& outside, DependencyGraph* graph = nullptr);

  /// Called for each child that depends on anything outside itself, with all of that, before its
  /// dependencies are taken out.
  virtual void ObserveReferences(const Node& child, const NodeList& references);

  /// Writes the members in braces.
  void UnparseBody(Writer& out) const;
  /// Writes what stands between the braces: here the children in their order.
  virtual void UnparseMembers(Writer& out) const;

  Children children;

 private:
  /// Takes out of `deps` what is declared inside this container, at any depth, and enters the
  /// children that are or enclose it as dependencies of `child`, each once, in their order. `deps`
  /// is left sorted by creation and without duplicates. A child that encloses both sides is not its
  /// own dependency. Costs what sorting `deps` costs, however many children there are.
  void MoveLocalDeclarations(const Node& child, NodeList& deps, DependencyGraph* graph) const;
};

/// A container that writes its declarations in the order in which they use each other.
class OrderedScope : public Container {
 public:
  /// A declaration that is put among the others.
  struct Insertion {
    std::unique_ptr<Node> node;
    /// Those inside this scope that use it. It stands before the first of them.
    std::vector<const Node*> users;
    /// Where there are none, it stands behind that, which is inside this scope.
    const Node* used;
  };

  bool declares(std::string_view name) const override;
  OrderedScope* AsOrderedScope() override { return this; }

  /// The children that have a forward declaration, and all in output order, as far as this scope
  /// writes them. Where modules inside this one are in each other's way, what they hold stands here
  /// in their place; then they are opened for it, as often as need be.
  const NodeList& Forwards() const { return forwards; }
  const NodeList& Sorted() const { return sorted; }
  void SetForwards(NodeList nodes) { forwards = std::move(nodes); }
  void SetSorted(NodeList nodes) { sorted = std::move(nodes); }

  /// Writes the forward declarations.
  void UnparseForwards(Writer& out) const;
  /// Takes over declarations and puts them in their places, both in the order of creation and in
  /// that of the output; those for one place keep their order. The tree must be numbered anew
  /// before anything else is asked of it.
  void Insert(std::vector<Insertion> insertions);

 protected:
  using Container::Container;

  void ResolveTypes(NodeList& deps) override { EvaluateAndSort(deps); }

  /// Evaluates the children, as above, orders them by their dependencies, and finds those that need
  /// a forward declaration. Part of evaluation, so that the warning about a child that can't have
  /// one is raised, once, before the messages are printed.
  void EvaluateAndSort(NodeList& outside);

  /// Writes the forward declarations and the children in output order.
  void UnparseMembers(Writer& out) const override;
  /// Writes one of these.
  virtual void UnparseChild(const Node& child, Writer& out) const { child.Unparse(out); }

  NodeList forwards;
  NodeList sorted;

 private:
  // The names of the children; made at the first question, null before.
  mutable std::unique_ptr<std::unordered_set<std::string_view>> names;
};

}  // namespace mdktoidl
