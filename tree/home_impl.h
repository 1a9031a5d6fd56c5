// The home executor of a composition: which home it implements and which component it manages.
#pragma once

#include <span>

#include "tree/container.h"

namespace mdktoidl {

class Segment;

class HomeImpl : public Container {
 public:
  HomeImpl(mdk::IMdeEntity* element, Container* parent) : Container(element, parent) {
    CreateNodeRef();
  }

  void EvaluateTypes(NodeList& deps) override;
  /// Whether the home that it implements and the implementation that it manages are part of the
  /// export. Without both it can't be written.
  bool isComplete() const { return home != nullptr && managed != nullptr; }
  /// Nothing: a home executor is written by its composition, which knows the segments.
  void Unparse(std::ofstream&) override {}
  void UnparseExecutor(std::span<const Segment* const> segments, std::ofstream& out) const;

 private:
  void UnparseManaged(std::span<const Segment* const> segments, std::ofstream& out) const;

  Node* home = nullptr;     // null when it is not part of the export
  Node* managed = nullptr;  // the component implementation, mostly the enclosing one
};

}  // namespace mdktoidl
