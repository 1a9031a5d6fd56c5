// A container that writes its declarations in the order in which they use each other.
#pragma once

#include <memory>
#include <string>
#include <unordered_set>

#include "tree/container.h"

namespace mdktoidl {

class OrderedScope : public Container {
 public:
  bool declares(const std::string& name) const override;

 protected:
  using Container::Container;

  /// Orders the children, once their dependencies are known, and finds those that need a forward
  /// declaration. Part of evaluation, so that the warning about a child that can't have one is
  /// raised, once, before the messages are printed.
  void Sort();

  /// Writes the forward declarations.
  void UnparseForwards(std::ofstream& out) const;

  /// Writes the forward declarations and the children in output order.
  void UnparseMembers(std::ofstream& out) const override;

  NodeList forwards;  // children on a cycle of dependencies, by creation
  NodeList sorted;    // all children in output order

 private:
  // The names of the children; made at the first question, null before.
  mutable std::unique_ptr<std::unordered_set<std::string>> names;
};

}  // namespace mdktoidl
