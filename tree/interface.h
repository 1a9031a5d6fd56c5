// An IDL interface.
#pragma once

#include <string>
#include <vector>

#include "tree/ordered_scope.h"

namespace mdktoidl {

class Interface : public OrderedScope {
 public:
  /// An interface inside `parent`; at the top of the tree when that is null.
  Interface(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;
  bool hasForward() const override { return true; }
  void UnparseForward(std::ofstream& out) const override;

  bool isAbstract() const;
  /// True for a local interface; one that is abstract as well is written as abstract.
  bool isLocal() const;

 private:
  /// Appends the nodes of the direct supertypes, each once; reports those that have none.
  void CollectGeneralizations(NodeList& result) const;
  void UnparseKind(std::ofstream& out) const;

  NodeList generalizations;
  std::vector<std::string> parentNames;
};

}  // namespace mdktoidl
