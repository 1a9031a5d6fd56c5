#include "picture/dependency_graph.h"

#include <algorithm>

#include "output/ordering.h"
#include "tree/use.h"

namespace picture {
namespace {

using mdktoidl::Construct;
using mdktoidl::Inheritance;
using mdktoidl::Node;
using mdktoidl::Root;
using mdktoidl::Use;
using mdktoidl::UseRole;
using Pairs = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

constexpr std::uint32_t none = ~std::uint32_t{0};

std::optional<std::uint32_t> Index(std::uint32_t index) {
  return index == none ? std::nullopt : std::optional(index);
}

/// What is a node of its own. What stands inside it belongs to it.
bool IsDrawnAlone(const Construct& kind) {
  return kind.inheritance == Inheritance::inherits || kind.language == mdktoidl::Language::cidl;
}

/// The picture shows what components and their homes are made from, not how implementations divide
/// it; and a label depends on nothing that the discriminator doesn't.
bool IsDrawn(const Use& use, const Node& user) {
  if (use.role == UseRole::label || use.role == UseRole::provides) return false;
  return use.role != UseRole::manages || user.Kind().language == mdktoidl::Language::idl;
}

template <typename Item>
void SortUnique(std::vector<Item>& items) {
  std::sort(items.begin(), items.end());
  items.erase(std::unique(items.begin(), items.end()), items.end());
}

void CountOne(const Construct& kind, Counts& counts) {
  auto at = std::ranges::lower_bound(counts, kind.rank, {},
                                     [](const auto& count) { return count.first->rank; });
  if (at == counts.end() || at->first != &kind) at = counts.insert(at, {&kind, 0});
  ++at->second;
}

/// By node, the number of its strongly connected component. The edges are sorted.
std::vector<std::size_t> ComponentsOf(std::size_t nodeCount, const Pairs& edges) {
  mdktoidl::DependencyGraph graph;
  graph.Reserve(nodeCount);
  auto edge = edges.begin();
  for (std::size_t node = 0; node < nodeCount; ++node) {
    graph.AddNode();
    for (; edge != edges.end() && edge->first == node; ++edge) graph.AddDependency(edge->second);
  }
  return OrderByDependencies(graph).component;
}

}  // namespace

/// By serial of one tree: the node of a declaration, its module, and among data the declaration
/// that it stands in.
struct GraphMaker::TreeIndices {
  explicit TreeIndices(std::size_t size)
      : node(size, none), module(size, none), datum(size, none) {}

  std::vector<std::uint32_t> node;
  std::vector<std::uint32_t> module;
  std::vector<std::uint32_t> datum;
};

void GraphMaker::Add(const Root& root) {
  TreeIndices indices(root.Nodes().size());
  for (const Node* node : root.Nodes()) {
    if (!node->isDeclared()) continue;
    const std::uint32_t serial = node->Serial();
    const std::uint32_t around = node->Enclosing() == nullptr ? 0 : node->Enclosing()->Serial();
    if (indices.node[around] != none) {
      indices.node[serial] = indices.node[around];
      indices.datum[serial] = indices.datum[around];
    } else if (node->isModule()) {
      indices.module[serial] = ModuleOf(*node, indices.module[around]);
    } else if (IsDrawnAlone(node->Kind())) {
      indices.node[serial] = NodeOf(*node, indices.module[around]);
    } else {
      indices.node[serial] = DataOf(indices.module[around]);
      indices.datum[serial] = DatumOf(*node, indices.node[serial]);
    }
  }
  CollectEdges(root, indices);
}

std::uint32_t GraphMaker::ModuleOf(const Node& module, std::uint32_t around) {
  const auto index = static_cast<std::uint32_t>(graph_.modules.size());
  const auto [entry, isNew] = modules_.try_emplace(module.Entity(), index);
  if (isNew) graph_.modules.push_back({std::string(module.Name()), Index(around)});
  return entry->second;
}

std::uint32_t GraphMaker::NodeOf(const Node& node, std::uint32_t around) {
  const auto index = static_cast<std::uint32_t>(graph_.nodes.size());
  const auto [entry, isNew] = nodes_.try_emplace(node.Entity(), index);
  if (isNew) {
    graph_.nodes.push_back({std::string(node.WrittenName()), &node.Kind(), Index(around), {}});
  }
  return entry->second;
}

std::uint32_t GraphMaker::DataOf(std::uint32_t module) {
  const auto index = static_cast<std::uint32_t>(graph_.nodes.size());
  const auto [entry, isNew] = dataNodes_.try_emplace(module, index);
  if (isNew) graph_.nodes.push_back({"", nullptr, Index(module), {}});
  return entry->second;
}

std::uint32_t GraphMaker::DatumOf(const Node& datum, std::uint32_t node) {
  const auto index = static_cast<std::uint32_t>(nodeOfDatum_.size());
  const auto [entry, isNew] = data_.try_emplace(datum.Entity(), index);
  if (isNew) {
    nodeOfDatum_.push_back(node);
    CountOne(datum.Kind(), graph_.nodes[node].counts);
  }
  return entry->second;
}

void GraphMaker::CollectEdges(const Root& root, const TreeIndices& indices) {
  for (const Node* user : root.Nodes()) {
    for (const Use& use : user->Used()) {
      if (!user->isDeclared() || !IsDrawn(use, *user)) continue;
      const std::uint32_t from = indices.node[user->Serial()];
      const std::uint32_t to = indices.node[use.used->Serial()];
      if (from == none || to == none) continue;
      const bool isInheritance = use.role == UseRole::base || use.role == UseRole::supports;
      if (from != to) graph_.edges.push_back({from, to, isInheritance});
      const std::uint32_t datum = indices.datum[user->Serial()];
      const std::uint32_t used = indices.datum[use.used->Serial()];
      if (from == to && datum != none && used != datum) dataEdges_.emplace_back(datum, used);
    }
  }
}

Graph GraphMaker::Finish() && {
  SortUnique(graph_.edges);
  SortUnique(dataEdges_);
  MarkCycles();
  AddDataCycles();
  std::ranges::sort(graph_.edges);
  return std::move(graph_);
}

void GraphMaker::MarkCycles() {
  Pairs pairs;
  for (const GraphEdge& edge : graph_.edges) pairs.emplace_back(edge.from, edge.to);
  const std::vector<std::size_t> components = ComponentsOf(graph_.nodes.size(), pairs);
  for (GraphEdge& edge : graph_.edges) {
    edge.isOnCycle = components[edge.from] == components[edge.to];
  }
}

/// A node of data whose declarations lie on a cycle among themselves leads to itself.
void GraphMaker::AddDataCycles() {
  const std::vector<std::size_t> components = ComponentsOf(nodeOfDatum_.size(), dataEdges_);
  std::vector<std::uint32_t> cyclic;
  for (const auto& [from, to] : dataEdges_) {
    if (components[from] == components[to]) cyclic.push_back(nodeOfDatum_[from]);
  }
  SortUnique(cyclic);
  for (const std::uint32_t node : cyclic) graph_.edges.push_back({node, node, false, true});
}

}  // namespace picture
