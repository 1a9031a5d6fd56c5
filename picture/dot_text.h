// A graph of dependencies in the language of Graphviz.
#pragma once

#include <string>

#include "picture/dependency_graph.h"

namespace picture {

/// Modules are boxes around their nodes, inheritance has a hollow arrow head, and what lies on a
/// cycle is red. The same graph gives the same text.
std::string DotText(const Graph& graph);

}  // namespace picture
