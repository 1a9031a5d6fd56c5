// A named sequence type.
#pragma once

#include "tree/container.h"

namespace mdktoidl {

class Sequence : public Node {
 public:
  Sequence(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;

 private:
  mdk::IMdeEntity* attribute = nullptr;  // what has the element type; null when there is none
};

}  // namespace mdktoidl
