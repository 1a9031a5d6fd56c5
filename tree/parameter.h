// A parameter of an operation.
#pragma once

#include "tree/container.h"

namespace mdktoidl {

class Operation;

class Parameter : public Node {
 public:
  Parameter(mdk::IMdeEntity* element, Operation& parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;

 private:
  const Operation& operation;
};

}  // namespace mdktoidl
