// An IDL struct.
#pragma once

#include "tree/container.h"

namespace mdktoidl {

class Struct : public Container {
 public:
  Struct(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override { EvaluateChildren(deps); }
  void Unparse(std::ofstream& out) override;

  bool hasForward() const override { return true; }
  void UnparseForward(std::ofstream& out) const override;
};

}  // namespace mdktoidl
