// Orders things so that each comes after those it depends on, and finds the cycles.
//
// It knows nothing of IDL: things are numbers, and dependencies are lists of numbers.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace mdktoidl {

/// Who depends on whom: `Successors(n)` are those that `n` depends on.
class DependencyGraph {
 public:
  /// Makes room for that many things.
  void Reserve(std::size_t size) { starts_.reserve(size); }
  /// Starts the list of the next thing, 0 the first time.
  void AddNode() { starts_.push_back(targets_.size()); }
  /// Adds to the list of the thing added last. `target` may be added later than this call.
  void AddDependency(std::size_t target) { targets_.push_back(target); }

  std::size_t Size() const { return starts_.size(); }
  std::span<const std::size_t> Successors(std::size_t node) const;

 private:
  std::vector<std::size_t> starts_;
  std::vector<std::size_t> targets_;
};

struct Ordering {
  /// All things, in depth-first post-order from 0 upwards: what a thing depends on comes before it,
  /// independent things keep their order.
  std::vector<std::size_t> order;
  /// Those that depend on themselves, directly or through others, ascending.
  std::vector<std::size_t> cyclic;
  /// By thing, the number of its strongly connected component: things share it that depend on each
  /// other, directly or through others.
  std::vector<std::size_t> component;
};

/// Linear in the size of the graph, without recursion.
Ordering OrderByDependencies(const DependencyGraph& graph);

}  // namespace mdktoidl
