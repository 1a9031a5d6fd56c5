// Cycles in directed graphs: what can be reached from itself.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

namespace command {

/// For each node from 0 to `nodeCount` a number that it shares with exactly those nodes that it
/// reaches and that reach it. The edges are pairs of nodes, sorted. Linear, and not recursive.
std::vector<std::uint32_t> StrongComponents(
    std::uint32_t nodeCount, const std::vector<std::pair<std::uint32_t, std::uint32_t>>& edges);

}  // namespace command
