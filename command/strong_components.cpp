#include "command/strong_components.h"

#include <algorithm>

namespace command {
namespace {

using Edges = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

constexpr std::uint32_t unknown = ~std::uint32_t{0};

/// Tarjan's algorithm with a stack of its own.
class Tarjan {
 public:
  Tarjan(std::uint32_t nodeCount, const Edges& edges)
      : edges_(edges),
        nextEdge_(nodeCount + std::size_t{1}),
        order_(nodeCount, unknown),
        lowest_(nodeCount),
        components_(nodeCount, unknown) {
    for (const auto& [from, to] : edges) ++nextEdge_[from + std::size_t{1}];
    for (std::size_t i = 1; i < nextEdge_.size(); ++i) nextEdge_[i] += nextEdge_[i - 1];
    ends_.assign(nextEdge_.begin() + 1, nextEdge_.end());
  }

  std::vector<std::uint32_t> Run() && {
    for (std::uint32_t node = 0; node < order_.size(); ++node) {
      if (order_[node] == unknown) Visit(node);
    }
    return std::move(components_);
  }

 private:
  void Visit(std::uint32_t start) {
    Enter(start);
    while (!path_.empty()) {
      const std::uint32_t node = path_.back();
      if (nextEdge_[node] == ends_[node]) {
        Leave(node);
        continue;
      }
      const std::uint32_t next = edges_[nextEdge_[node]++].second;
      if (order_[next] == unknown) {
        Enter(next);
      } else if (components_[next] == unknown) {
        lowest_[node] = std::min(lowest_[node], order_[next]);
      }
    }
  }

  void Enter(std::uint32_t node) {
    order_[node] = lowest_[node] = entered_++;
    path_.push_back(node);
    open_.push_back(node);
  }

  void Leave(std::uint32_t node) {
    path_.pop_back();
    if (!path_.empty()) lowest_[path_.back()] = std::min(lowest_[path_.back()], lowest_[node]);
    if (lowest_[node] != order_[node]) return;
    std::uint32_t member;
    do {
      member = open_.back();
      open_.pop_back();
      components_[member] = node;
    } while (member != node);
  }

  const Edges& edges_;
  std::vector<std::size_t> nextEdge_;  // by node, the first of its edges not yet followed
  std::vector<std::size_t> ends_;      // by node, behind its edges
  std::vector<std::uint32_t> order_;   // by node, when it was entered
  std::vector<std::uint32_t> lowest_;  // by node, the earliest that it reaches
  std::vector<std::uint32_t> components_;
  std::vector<std::uint32_t> path_;  // from the start to the node being visited
  std::vector<std::uint32_t> open_;  // entered, and not yet in a component
  std::uint32_t entered_ = 0;
};

}  // namespace

std::vector<std::uint32_t> StrongComponents(std::uint32_t nodeCount, const Edges& edges) {
  return Tarjan(nodeCount, edges).Run();
}

}  // namespace command
