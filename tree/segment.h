// A segment of a component implementation: the facets that one executor provides.
#pragma once

#include "tree/container.h"

namespace mdktoidl {

class Segment : public Node {
 public:
  Segment(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) { CreateNodeRef(); }

  void EvaluateTypes(NodeList& deps) override;
  /// Nothing: a segment is written inside its composition's home executor alone.
  void Unparse(std::ofstream&) override {}
  void UnparseSegment(std::ofstream& out) const;

 private:
  NodeList provided;  // facets, or artifacts that stand for them
};

}  // namespace mdktoidl
