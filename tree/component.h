// A component of the component model.
#pragma once

#include "tree/container.h"

namespace mdktoidl {

class Component : public Container {
 public:
  Component(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;
  bool hasForward() const override { return true; }
  void UnparseForward(std::ofstream& out) const override;

 private:
  void CollectGeneralizations();

  Node* baseComponent = nullptr;  // null for none
  NodeList supports;
};

}  // namespace mdktoidl
