// Draws what an export depends on: its modules, interfaces, and the uses between them.
#pragma once

#include <filesystem>

#include "picture/dependency_graph.h"

namespace picture {

/// Throws `placement::Failure` for a file whose name doesn't end in ".dot" or ".svg", to be asked
/// before there is anything to draw.
void CheckGraphFile(const std::filesystem::path& file);

/// Writes the graph: as text for Graphviz into a file that ends in ".dot", or drawn by Graphviz's
/// program `dot` into one that ends in ".svg". A relative path begins at the current directory of
/// the process. Throws `Failure` for other files, when the file can't be written and when there is
/// no such program; then the file is as it was.
void WriteGraph(const Graph& graph, const std::filesystem::path& file);

}  // namespace picture
