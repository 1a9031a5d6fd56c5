// An IDL operation: plain, oneway, a factory or a finder. A UML signal becomes a oneway operation.
#pragma once

#include <optional>

#include "tree/container.h"

namespace mdktoidl {

class Line;

/// Its children are the parameters, the return parameter included.
class Operation : public Container {
 public:
  Operation(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;

  bool isFactory() const { return factory; }
  bool isFinder() const { return finder; }
  bool isSignal() const;
  /// Whether the rules of oneway operations hold: only in-parameters and no exceptions. Finders and
  /// factories count, although they are not written with "oneway".
  bool isOneway() const;

 private:
  bool DetermineOneway() const;
  void CheckOwner() const;
  void EvaluateReturnType(NodeList& deps);
  void EvaluateRaises(NodeList& deps);
  void UnparsePrefix(Line& line) const;
  void UnparseParameters(Line& line) const;
  void UnparseRaises(Line& line) const;
  void UnparseContext(Line& line) const;

  Node* returnParameter = nullptr;  // one of the children; null for none
  NodeList raises;
  bool finder;
  bool factory;
  mutable std::optional<bool> oneway;  // asked of the model at the first question
};

}  // namespace mdktoidl
