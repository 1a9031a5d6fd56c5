#include "tree/circles.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace mdktoidl {

void Numbering::Number(const std::vector<const Node*>& list) {
  for (const std::uint32_t serial : numbered_) numbers_[serial] = none;
  numbered_.clear();
  for (std::size_t place = 0; place < list.size(); ++place) {
    numbers_[list[place]->Serial()] = place;
    numbered_.push_back(list[place]->Serial());
  }
}

std::size_t Numbering::Around(const Node& node) const {
  const Node* each = &node;
  while (each != nullptr && Of(*each) == none) each = each->Enclosing();
  return each == nullptr ? none : Of(*each);
}

void SortEdges(std::vector<Edge>& edges) {
  const auto key = [](const Edge& edge) { return std::tuple(edge.from, edge.to, !edge.isHard); };
  std::ranges::stable_sort(edges, {}, key);
  const auto isSame = [](const Edge& left, const Edge& right) {
    return left.from == right.from && left.to == right.to;
  };
  edges.erase(std::unique(edges.begin(), edges.end(), isSame), edges.end());
}

DependencyGraph GraphOf(std::size_t size, const std::vector<Edge>& edges) {
  DependencyGraph graph;
  graph.Reserve(size);
  auto edge = edges.begin();
  for (std::size_t node = 0; node < size; ++node) {
    graph.AddNode();
    for (; edge != edges.end() && edge->from == node; ++edge) graph.AddDependency(edge->to);
  }
  return graph;
}

std::vector<const Demand*> ShortestCircle(std::size_t start, std::size_t size,
                                          const std::vector<Edge>& edges) {
  std::vector<const Edge*> arrivedBy(size, nullptr);
  std::vector<std::size_t> queue = {start};
  for (std::size_t head = 0; head < queue.size() && arrivedBy[start] == nullptr; ++head) {
    auto edge = std::ranges::lower_bound(edges, queue[head], {}, &Edge::from);
    for (; edge != edges.end() && edge->from == queue[head]; ++edge) {
      if (arrivedBy[edge->to] != nullptr) continue;
      arrivedBy[edge->to] = &*edge;
      queue.push_back(edge->to);
    }
  }
  std::vector<const Demand*> steps;
  if (arrivedBy[start] == nullptr) return steps;
  std::size_t at = start;
  do {
    steps.push_back(arrivedBy[at]->demand);
    at = arrivedBy[at]->from;
  } while (at != start);
  std::ranges::reverse(steps);
  return steps;
}

namespace {

std::string_view VerbOf(const Demand& demand) {
  const Construct& kind = demand.after->Kind();
  const bool isHolder =
      kind.scope == ScopeKind::reservesItsName && kind.inheritance == Inheritance::none;
  switch (demand.use->role) {
    case UseRole::type:
      return isHolder ? "holds" : "uses";
    case UseRole::element:
      return demand.use->isInSequence ? "holds sequences of" : "holds arrays of";
    case UseRole::bound:
      return "is bounded by";
    case UseRole::value:
      return "has the value of";
    case UseRole::base:
      return "inherits from";
    case UseRole::supports:
      return "supports";
    case UseRole::raises:
      return "raises";
    case UseRole::manages:
      return "manages";
    default:
      return "uses";
  }
}

std::string StepOf(const Demand& demand) {
  const Use& use = *demand.use;
  std::string text = std::string(demand.after->Kind().word) + " " + demand.after->ScopedName("::") +
                     " " + std::string(VerbOf(demand)) + " " + use.used->ScopedName("::");
  // A sequence's element is demanded by who uses the sequence.
  if (!demand.before->Encloses(*use.used)) {
    text += ", which needs " + demand.before->ScopedName("::") + " complete";
  }
  return text;
}

bool areOnlyConstants(const std::vector<const Demand*>& steps) {
  return std::ranges::all_of(steps,
                             [](const Demand* step) { return step->use->role == UseRole::value; });
}

}  // namespace

Diagnostic CircleOf(Message message, const Node& node, const std::vector<const Demand*>& steps) {
  Diagnostic circle{message, node.Blamed(), {node.ScopedName("::"), ""}, {}};
  for (const Demand* step : steps) {
    circle.related.push_back({step->use->user->Blamed(), StepOf(*step)});
    if (!circle.pieces.back().empty()) circle.pieces.back() += "; ";
    circle.pieces.back() += circle.related.back().text;
  }
  return circle;
}

bool CheckCircles(const std::vector<Demand>& demands, Numbering& numbering) {
  std::vector<const Node*> nodes;
  for (const Demand& demand : demands) {
    if (!demand.isHard) continue;
    nodes.push_back(demand.before);
    nodes.push_back(demand.after);
  }
  std::ranges::sort(nodes, {}, &Node::Serial);
  nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
  numbering.Number(nodes);
  std::vector<Edge> edges;
  for (const Demand& demand : demands) {
    if (!demand.isHard) continue;
    edges.push_back({numbering.Of(*demand.after), numbering.Of(*demand.before), &demand, true});
  }
  SortEdges(edges);
  const Ordering ordering = OrderByDependencies(GraphOf(nodes.size(), edges));
  std::unordered_set<std::size_t> told;  // components
  for (const std::size_t node : ordering.cyclic) {
    if (!told.insert(ordering.component[node]).second) continue;
    const auto steps = ShortestCircle(node, nodes.size(), edges);
    // Constants that have each other's value are told of where they are evaluated.
    if (!areOnlyConstants(steps)) {
      Report(CircleOf(Message::orderIsCircular, *nodes[node], steps));
    }
  }
  return ordering.cyclic.empty();
}

}  // namespace mdktoidl
