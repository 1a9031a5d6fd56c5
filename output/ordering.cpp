#include "output/ordering.h"

#include <algorithm>

namespace mdktoidl {

std::span<const std::size_t> DependencyGraph::Successors(std::size_t node) const {
  const std::size_t end = node + 1 < starts_.size() ? starts_[node + 1] : targets_.size();
  return std::span(targets_).subspan(starts_[node], end - starts_[node]);
}

namespace {

/// One depth-first search that gives the post-order and, by Tarjan's method, the strongly connected
/// components: the nodes on a cycle are those in a component with another, or next to themselves.
class DepthFirstSearch {
 public:
  explicit DepthFirstSearch(const DependencyGraph& graph) : graph_(graph), states_(graph.Size()) {
    result_.order.reserve(graph.Size());
    result_.component.resize(graph.Size());
  }

  Ordering Run() {
    for (std::size_t node = 0; node < graph_.Size(); ++node) {
      if (states_[node].number == unvisited) SearchFrom(node);
    }
    std::sort(result_.cyclic.begin(), result_.cyclic.end());
    return std::move(result_);
  }

 private:
  static constexpr std::size_t unvisited = 0;

  struct State {
    std::size_t number = unvisited;  // order of discovery, from 1
    std::size_t lowest = 0;          // lowest number known to be reachable in the component
    std::size_t next = 0;            // position of the successor to look at next
    bool open = false;               // its component is not complete yet
    bool dependsOnItself = false;
  };

  void SearchFrom(std::size_t start) {
    Discover(start);
    while (!path_.empty()) {
      const std::size_t node = path_.back();
      const auto successors = graph_.Successors(node);
      if (states_[node].next == successors.size()) {
        Finish(node);
      } else {
        Look(node, successors[states_[node].next++]);
      }
    }
  }

  void Discover(std::size_t node) {
    State& state = states_[node];
    state.number = state.lowest = ++discovered_;
    state.open = true;
    path_.push_back(node);
    component_.push_back(node);
  }

  void Look(std::size_t node, std::size_t successor) {
    if (successor == node) states_[node].dependsOnItself = true;
    const State& other = states_[successor];
    if (other.number == unvisited) {
      Discover(successor);
    } else if (other.open) {
      states_[node].lowest = std::min(states_[node].lowest, other.number);
    }
  }

  void Finish(std::size_t node) {
    result_.order.push_back(node);
    path_.pop_back();
    const State& state = states_[node];
    if (!path_.empty()) {
      State& parent = states_[path_.back()];
      parent.lowest = std::min(parent.lowest, state.lowest);
    }
    if (state.lowest == state.number) CloseComponent(node);
  }

  void CloseComponent(std::size_t root) {
    const bool isCycle = component_.back() != root || states_[root].dependsOnItself;
    std::size_t member;
    do {
      member = component_.back();
      component_.pop_back();
      states_[member].open = false;
      result_.component[member] = root;
      if (isCycle) result_.cyclic.push_back(member);
    } while (member != root);
  }

  const DependencyGraph& graph_;
  std::vector<State> states_;
  std::vector<std::size_t> path_;       // from the start to the node being looked at
  std::vector<std::size_t> component_;  // nodes whose component is not complete yet
  std::size_t discovered_ = 0;
  Ordering result_;
};

}  // namespace

Ordering OrderByDependencies(const DependencyGraph& graph) { return DepthFirstSearch(graph).Run(); }

}  // namespace mdktoidl
