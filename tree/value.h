// An IDL value type or event type.
#pragma once

#include <string>
#include <vector>

#include "tree/ordered_scope.h"

namespace mdktoidl {

/// Its members keep the model's order, but for nested types that must come before their users.
class Value : public OrderedScope {
 public:
  Value(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;
  bool hasForward() const override { return true; }
  void UnparseForward(std::ofstream& out) const override;

 private:
  void EvaluateKind();
  /// Both append each node once and report those that have none.
  void CollectGeneralizations(NodeList& result);
  void CollectSupports(NodeList& result) const;
  void UnparseBases(std::ofstream& out) const;

  bool custom = false;
  bool abstract = false;
  std::string kindWord = "value";  // written before "type"
  NodeList supports;
  std::vector<std::string> supportsNames;
  Node* truncatableBase = nullptr;  // null when no generalization is truncatable
  NodeList generalizations;
  std::vector<std::string> parentNames;  // the truncatable base first, with its word
};

}  // namespace mdktoidl
