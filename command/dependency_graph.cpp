#include "command/dependency_graph.h"

#include <algorithm>
#include <unordered_map>

#include "command/declaration_uses.h"
#include "command/strong_components.h"

namespace command {
namespace {

using Kind = DeclarationKind;
using Pairs = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

constexpr std::uint32_t none = ~std::uint32_t{0};

std::optional<std::uint32_t> Place(std::uint32_t place) {
  return place == none ? std::nullopt : std::optional(place);
}

template <typename Item>
void SortUnique(std::vector<Item>& items) {
  std::sort(items.begin(), items.end());
  items.erase(std::unique(items.begin(), items.end()), items.end());
}

class GraphMaker {
 public:
  explicit GraphMaker(const Declarations& declarations)
      : declarations_(declarations),
        nodeOf_(declarations.Size(), none),
        moduleOf_(declarations.Size(), none),
        datumOf_(declarations.Size(), none) {}

  DependencyGraph Make() && {
    for (DeclarationIndex index = 0; index < declarations_.Size(); ++index) Enter(index);
    CollectEdges();
    MarkCycles();
    AddDataCycles();
    std::ranges::sort(graph_.edges);
    return std::move(graph_);
  }

 private:
  /// Gives a declaration its module or its node, those of what it stands in being known.
  void Enter(DeclarationIndex index) {
    const Declaration& declaration = declarations_[index];
    const DeclarationIndex parent = declaration.parent;
    if (parent != kNoDeclaration && nodeOf_[parent] != none) {
      nodeOf_[index] = nodeOf_[parent];
      datumOf_[index] = datumOf_[parent];
      return;
    }
    const std::uint32_t around = parent == kNoDeclaration ? none : moduleOf_[parent];
    if (declaration.kind == Kind::kModule) {
      moduleOf_[index] = ModuleOf(declaration, around);
    } else if (InheritsMembers(declaration.kind) || declaration.kind == Kind::kComposition) {
      nodeOf_[index] = NodeOf(declaration, around);
    } else {
      nodeOf_[index] = DataOf(around);
      const auto [datum, isNew] = data_.try_emplace(declaration.element, index);
      datumOf_[index] = datum->second;
      if (isNew) ++graph_.nodes[nodeOf_[index]].counts[declaration.kind];
    }
  }

  std::uint32_t ModuleOf(const Declaration& declaration, std::uint32_t around) {
    const auto place = static_cast<std::uint32_t>(graph_.modules.size());
    const auto [module, isNew] = modules_.try_emplace(declaration.element, place);
    if (isNew) graph_.modules.push_back({std::string(declaration.Name()), Place(around)});
    return module->second;
  }

  std::uint32_t NodeOf(const Declaration& declaration, std::uint32_t around) {
    const auto place = static_cast<std::uint32_t>(graph_.nodes.size());
    const auto [node, isNew] = nodes_.try_emplace(declaration.element, place);
    if (isNew) {
      graph_.nodes.push_back(
          {std::string(declaration.Name()), declaration.kind, Place(around), {}});
    }
    return node->second;
  }

  std::uint32_t DataOf(std::uint32_t module) {
    const auto place = static_cast<std::uint32_t>(graph_.nodes.size());
    const auto [node, isNew] = dataNodes_.try_emplace(module, place);
    if (isNew) graph_.nodes.push_back({"", std::nullopt, Place(module), {}});
    return node->second;
  }

  void CollectEdges() {
    const DeclarationUses uses(declarations_);
    for (DeclarationIndex user = 0; user < declarations_.Size(); ++user) {
      for (const Use& use : uses.Of(user)) {
        const std::uint32_t from = nodeOf_[user];
        const std::uint32_t to = nodeOf_[use.used];
        if (from == none || to == none) continue;
        if (from != to) graph_.edges.push_back({from, to, use.place == UsePlace::kBase});
        const std::uint32_t datum = datumOf_[user];
        const bool isData = from == to && datum != none && datumOf_[use.used] != datum;
        if (isData) dataEdges_.emplace_back(datum, datumOf_[use.used]);
      }
    }
    SortUnique(graph_.edges);
    SortUnique(dataEdges_);
  }

  void MarkCycles() {
    Pairs pairs;
    for (const GraphEdge& edge : graph_.edges) pairs.emplace_back(edge.from, edge.to);
    const auto nodeCount = static_cast<std::uint32_t>(graph_.nodes.size());
    const std::vector<std::uint32_t> components = StrongComponents(nodeCount, pairs);
    for (GraphEdge& edge : graph_.edges) {
      edge.isOnCycle = components[edge.from] == components[edge.to];
    }
  }

  /// A node of data whose declarations lie on a cycle among themselves leads to itself.
  void AddDataCycles() {
    const std::vector<std::uint32_t> components =
        StrongComponents(declarations_.Size(), dataEdges_);
    std::vector<std::uint32_t> cyclic;
    for (const auto& [from, to] : dataEdges_) {
      if (components[from] == components[to]) cyclic.push_back(nodeOf_[from]);
    }
    SortUnique(cyclic);
    for (const std::uint32_t node : cyclic) graph_.edges.push_back({node, node, false, true});
  }

  const Declarations& declarations_;
  DependencyGraph graph_;
  // By declaration: its node, its module, and among data the declaration that it stands in.
  std::vector<std::uint32_t> nodeOf_;
  std::vector<std::uint32_t> moduleOf_;
  std::vector<std::uint32_t> datumOf_;
  // Looked up only, never walked through: their order means nothing.
  std::unordered_map<const model::Element*, std::uint32_t> modules_;
  std::unordered_map<const model::Element*, std::uint32_t> nodes_;
  std::unordered_map<const model::Element*, std::uint32_t> data_;
  std::unordered_map<std::uint32_t, std::uint32_t> dataNodes_;  // by module
  Pairs dataEdges_;
};

}  // namespace

DependencyGraph MakeDependencyGraph(const Declarations& declarations) {
  return GraphMaker(declarations).Make();
}

}  // namespace command
