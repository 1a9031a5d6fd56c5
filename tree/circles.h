// Circles of declarations that need each other complete, which no order satisfies.
#pragma once

#include <vector>

#include "agent/diagnostics.h"
#include "tree/precedence.h"

namespace mdktoidl {

/// The places of things in lists made of them, by serial. One is used for many lists, so that none
/// costs more than it has members.
class Numbering {
 public:
  static constexpr std::size_t none = static_cast<std::size_t>(-1);

  explicit Numbering(std::size_t nodes) : numbers_(nodes, none) {}
  /// Numbers the members of a list, and forgets the list before.
  void Number(const std::vector<const Node*>& list);
  /// The place of a node; `none` when it is not in the list.
  std::size_t Of(const Node& node) const { return numbers_[node.Serial()]; }
  /// The place of what is or encloses it.
  std::size_t Around(const Node& node) const;

 private:
  std::vector<std::size_t> numbers_;
  std::vector<std::uint32_t> numbered_;
};

/// Somebody who depends on somebody, by their places in a list, and why.
struct Edge {
  std::size_t from;
  std::size_t to;
  const Demand* demand;  ///< null for one that has no reason in the uses
  bool isHard;
};

/// Sorts by both ends, and keeps the first demand among the same, a hard one if there is any.
void SortEdges(std::vector<Edge>& edges);

/// The graph of sorted edges.
DependencyGraph GraphOf(std::size_t size, const std::vector<Edge>& edges);

/// A shortest circle through `start`, which is on one. `edges` are sorted.
std::vector<const Demand*> ShortestCircle(std::size_t start, std::size_t size,
                                          const std::vector<Edge>& edges);

/// What a step of a circle shows, "struct M::A holds M::B".
Diagnostic CircleOf(Message message, const Node& node, const std::vector<const Demand*>& steps);

/// Reports the circles of hard demands; one for all declarations that need each other. False when
/// there is one.
bool CheckCircles(const std::vector<Demand>& demands, Numbering& numbering);

}  // namespace mdktoidl
