// A component implementation: a composition of the component implementation language.
#pragma once

#include <string>
#include <vector>

#include "tree/container.h"

namespace mdktoidl {

class HomeImpl;
class Segment;

/// Its children are the home executors, of which the first is written, and the segments.
class ComponentImpl : public Container {
 public:
  ComponentImpl(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;

 private:
  /// Writes the home executor, and the segments inside it.
  void UnparseMembers(std::ofstream& out) const override;
  void AdoptMember(mdk::IMdeEntity* member);
  std::string Category() const;
  /// The name that the composition has in the model, or else the implementation's.
  std::string CompositionName() const;

  const HomeImpl* homeExecutor = nullptr;  // null when the model has none
  std::vector<const Segment*> segments;
};

}  // namespace mdktoidl
