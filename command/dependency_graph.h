// Which interfaces and modules of an export depend on which others, in the size of a picture.
//
// Each interface, value type, component and the like is a node; the structs, enumerations and other
// data of a module are one node together. What stands inside an interface belongs to it.
#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "command/declarations.h"

namespace command {

struct GraphModule {
  std::string name;
  /// The place of the module around it; nothing at the top.
  std::optional<std::uint32_t> parent;
};

struct GraphNode {
  std::string name;
  /// Nothing for a module's data.
  std::optional<DeclarationKind> kind;
  /// The place of the module that it stands in; nothing at the top.
  std::optional<std::uint32_t> module;
  /// How many declarations of each kind a module's data are.
  std::map<DeclarationKind, std::size_t> counts;
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
struct DependencyGraph {
  std::vector<GraphModule> modules;
  std::vector<GraphNode> nodes;
  std::vector<GraphEdge> edges;
};

DependencyGraph MakeDependencyGraph(const Declarations& declarations);

}  // namespace command
