// What must stand before what: the record of uses, seen as demands on the order.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "tree/module.h"

namespace mdktoidl {

/// One use makes a demand on two declarations of one scope, or of two modules. Both are children of
/// scopes that order their declarations, and no modules.
struct Demand {
  const Node* before;
  const Node* after;  ///< the same for one that demands itself, which no order satisfies
  const Use* use;
  /// `before` must be defined there; else a forward declaration of it suffices.
  bool isHard;
};

class Precedence {
 public:
  /// Of a tree that is evaluated.
  explicit Precedence(const Root& root);

  /// Calls `take` with each demand of a use: none, one, or a second one on what the used sequence
  /// can't be complete without.
  template <typename Take>
  void ForEachDemand(const Use& use, Take take) const {
    if (!use.isDependency) return;
    if (const auto demand = DemandOn(use, *use.used, isHard(use))) take(*demand);
    const Node* element = ElementToComplete(use);
    if (element == nullptr) return;
    if (const auto demand = DemandOn(use, *element, true)) take(*demand);
  }

 private:
  static bool isHard(const Use& use);
  static const Node* ElementToComplete(const Use& use);
  std::optional<Demand> DemandOn(const Use& use, const Node& used, bool isHard) const;
  std::optional<Demand> DemandInside(const Use& use, const Node& used, bool isHard) const;

  const std::vector<Node*>& nodes_;
  // By serial, that of the child of a module or the root that is or encloses a node.
  std::vector<std::uint32_t> units_;
};

}  // namespace mdktoidl
