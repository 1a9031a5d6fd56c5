// An IDL exception. Unlike a struct it may be empty, and IDL has no forward form of it.
#pragma once

#include "tree/container.h"

namespace mdktoidl {

class Exception : public Container {
 public:
  Exception(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override { EvaluateChildren(deps); }
  void Unparse(std::ofstream& out) override;
};

}  // namespace mdktoidl
