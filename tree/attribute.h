// An attribute of an interface, and the base of all members that a UML attribute becomes.
#pragma once

#include "tree/container.h"

namespace mdktoidl {

class Attribute : public Node {
 public:
  Attribute(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) {
    CreateNodeRef();
  }

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;

  /// True for an attribute that is frozen in the model.
  virtual bool isReadOnly() const;
};

}  // namespace mdktoidl
