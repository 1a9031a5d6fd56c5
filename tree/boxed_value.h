// An IDL boxed value type.
#pragma once

#include "tree/container.h"

namespace mdktoidl {

class BoxedValue : public Node {
 public:
  BoxedValue(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;

 private:
  mdk::IMdeEntity* attribute = nullptr;  // what has the boxed type; null when there is none
};

}  // namespace mdktoidl
