// Which interfaces and modules of an export depend on which others, in few enough nodes
// to be looked at.
//
// Each interface, value type, component and the like is a node; the structs, enumerations and other
// data of a module are one node together. What stands inside an interface belongs to it.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/element.h"
#include "tree/module.h"

namespace picture {

struct GraphModule {
  std::string name;
  /// The index of the module around it; nothing at the top.
  std::optional<std::uint32_t> parent;
};

/// How many declarations of each kind there are, by the order in which the kinds are named.
using Counts = std::vector<std::pair<const mdktoidl::Construct*, std::size_t>>;

struct GraphNode {
  std::string name;
  /// Null for a module's data.
  const mdktoidl::Construct* kind = nullptr;
  /// The index of the module that it stands in; nothing at the top.
  std::optional<std::uint32_t> module;
  /// How many declarations of each kind a module's data are.
  Counts counts;
};

struct GraphEdge {
  std::uint32_t from = 0;
  std::uint32_t to = 0;
  bool isInheritance = false;
  /// Whether one gets back along other edges, or, from a node to itself, along the data in it.
  bool isOnCycle = false;
  friend auto operator<=>(const GraphEdge&, const GraphEdge&) = default;
};

/// Modules and nodes in the model's order, each once however many artifacts export it; those around
/// before those inside. Edges by their nodes; there is none from a node to itself but for a cycle.
struct Graph {
  std::vector<GraphModule> modules;
  std::vector<GraphNode> nodes;
  std::vector<GraphEdge> edges;
};

/// Collects the graph of what several artifacts export, from tree to tree. It keeps nothing of a
/// tree.
class GraphMaker {
 public:
  /// Adds what an evaluated tree declares and uses.
  void Add(const mdktoidl::Root& root);

  /// The graph of all that was added.
  Graph Finish() &&;

 private:
  struct TreeIndices;

  std::uint32_t ModuleOf(const mdktoidl::Node& module, std::uint32_t around);
  std::uint32_t NodeOf(const mdktoidl::Node& node, std::uint32_t around);
  std::uint32_t DataOf(std::uint32_t module);
  std::uint32_t DatumOf(const mdktoidl::Node& datum, std::uint32_t node);
  void CollectEdges(const mdktoidl::Root& root, const TreeIndices& indices);
  void MarkCycles();
  void AddDataCycles();

  using Indices = std::unordered_map<const mdk::IMdeEntity*, std::uint32_t>;

  Graph graph_;
  // Looked up only, never walked through: their order means nothing.
  Indices modules_;
  Indices nodes_;
  Indices data_;
  std::unordered_map<std::uint32_t, std::uint32_t> dataNodes_;  // by module
  std::vector<std::uint32_t> nodeOfDatum_;
  std::vector<std::pair<std::uint32_t, std::uint32_t>> dataEdges_;
};

}  // namespace picture
