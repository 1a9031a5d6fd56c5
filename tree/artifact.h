// An element marked as an artifact: no IDL of its own, but others may refer to it.
#pragma once

#include "tree/container.h"

namespace mdktoidl {

class Artifact : public Node {
 public:
  Artifact(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) { CreateNodeRef(); }

  void EvaluateTypes(NodeList&) override {}
  void Unparse(std::ofstream&) override {}
};

}  // namespace mdktoidl
