#include "picture/dot_text.h"

#include <string_view>

#include "tree/interfaces.h"
#include "types/one_line.h"

namespace picture {
namespace {

constexpr std::string_view head =
    "digraph idl {\n"
    "  graph [fontname=\"Helvetica,Arial,sans-serif\", fontsize=12, fontcolor=\"#3c4858\",\n"
    "         nodesep=0.3, ranksep=0.55, pad=0.25]\n"
    "  node [fontname=\"Helvetica,Arial,sans-serif\", fontsize=11, fontcolor=\"#1f2933\",\n"
    "        shape=box, style=\"filled,rounded\", margin=\"0.14,0.07\", height=0.3,\n"
    "        color=\"#7f9bbd\", fillcolor=\"#e6f0fb\"]\n"
    "  edge [color=\"#8a96a3\", arrowsize=0.7]\n";

/// A text between quotes: neither its quotes nor what would be an escape or an entity in a label
/// mean anything.
std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : mdktoidl::OneLine(text)) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
    if (character == '&') quoted += "amp;";
  }
  return quoted + "\"";
}

/// "3 structs, 1 enum", one kind a line.
std::string CountText(const Counts& counts) {
  std::string text;
  for (const auto& [kind, count] : counts) {
    if (!text.empty()) text += "\\n";
    text += std::to_string(count) + " " + std::string(kind->word) + (count == 1 ? "" : "s");
  }
  return text;
}

/// Interfaces, the most frequent kind by far, are only named.
std::string NodeAttributes(const GraphNode& node) {
  if (node.kind == nullptr) {
    return "label=\"" + CountText(node.counts) +
           "\", shape=note, style=filled, fontsize=10, color=\"#b5b09a\", fillcolor=\"#fffdf2\"";
  }
  std::string attributes = "label=" + Quoted(node.name);
  if (node.kind == &mdktoidl::Interface::kind) return attributes;
  attributes = "label=\"«" + std::string(node.kind->word) + "»\\n" + Quoted(node.name).substr(1);
  const bool isValue =
      node.kind == &mdktoidl::Value::kind || node.kind == &mdktoidl::Value::eventKind;
  return attributes + (isValue ? ", color=\"#8cb58c\", fillcolor=\"#ebf7e9\""
                               : ", color=\"#d0a774\", fillcolor=\"#fdf1e0\"");
}

class DotWriter {
 public:
  explicit DotWriter(const Graph& graph)
      : graph_(graph), modulesIn_(graph.modules.size() + 1), nodesIn_(graph.modules.size() + 1) {
    for (std::size_t i = 0; i < graph.modules.size(); ++i) {
      modulesIn_[IndexOf(graph.modules[i].parent)].push_back(i);
    }
    for (std::size_t i = 0; i < graph.nodes.size(); ++i) {
      nodesIn_[IndexOf(graph.nodes[i].module)].push_back(i);
    }
  }

  std::string Write() && {
    text_ = head;
    // Many modules side by side make a picture that no window shows; below each other they can be
    // scrolled through.
    constexpr std::size_t mostSideBySide = 12;
    if (graph_.modules.size() > mostSideBySide) Line(1, "rankdir=LR");
    WriteModules();
    for (const GraphEdge& edge : graph_.edges) WriteEdge(edge);
    text_ += "}\n";
    return std::move(text_);
  }

 private:
  std::size_t IndexOf(std::optional<std::uint32_t> module) const {
    return module.value_or(static_cast<std::uint32_t>(graph_.modules.size()));
  }

  /// From the outside in and back, with a list of what is still to be opened or closed: how deep
  /// modules nest is for the model to say.
  void WriteModules() {
    struct Step {
      std::size_t module;
      std::size_t depth;
      bool isEnd;
    };
    std::vector<Step> steps;
    const auto open = [&](std::size_t index, std::size_t depth) {
      for (const std::size_t node : nodesIn_[index]) WriteNode(node, depth);
      const auto& inner = modulesIn_[index];
      for (auto module = inner.rbegin(); module != inner.rend(); ++module) {
        steps.push_back({*module, depth, false});
      }
    };
    open(graph_.modules.size(), 1);
    while (!steps.empty()) {
      const Step step = steps.back();
      steps.pop_back();
      if (step.isEnd) {
        Line(step.depth, "}");
        continue;
      }
      OpenModule(step.module, step.depth);
      steps.push_back({step.module, step.depth, true});
      open(step.module, step.depth + 1);
    }
  }

  void OpenModule(std::size_t module, std::size_t depth) {
    const std::string number = std::to_string(module);
    Line(depth, "subgraph cluster_" + number + " {");
    Line(depth + 1, "graph [label=" + Quoted(graph_.modules[module].name) +
                        ", labeljust=l, margin=12, style=\"filled,rounded\", color=\"#c9d3de\", "
                        "fillcolor=\"" +
                        (depth % 2 == 1 ? "#f6f8fa" : "#eef2f6") + "\"]");
    if (modulesIn_[module].empty() && nodesIn_[module].empty()) {
      Line(depth + 1, "empty_" + number + " [label=\"(empty)\", shape=plaintext, style=\"\"]");
    }
  }

  void WriteNode(std::size_t node, std::size_t depth) {
    Line(depth, "n" + std::to_string(node) + " [" + NodeAttributes(graph_.nodes[node]) + "]");
  }

  void WriteEdge(const GraphEdge& edge) {
    std::string attributes = edge.isInheritance ? "arrowhead=onormal, arrowsize=0.9" : "";
    if (edge.isOnCycle) {
      attributes += attributes.empty() ? "" : ", ";
      attributes += "color=\"#d0021b\", penwidth=1.6";
    }
    Line(1, "n" + std::to_string(edge.from) + " -> n" + std::to_string(edge.to) +
                (attributes.empty() ? "" : " [" + attributes + "]"));
  }

  void Line(std::size_t depth, const std::string& line) {
    text_.append(2 * depth, ' ').append(line).append("\n");
  }

  const Graph& graph_;
  // By module, and behind the last for the top: what stands directly in it.
  std::vector<std::vector<std::size_t>> modulesIn_;
  std::vector<std::vector<std::size_t>> nodesIn_;
  std::string text_;
};

}  // namespace

std::string DotText(const Graph& graph) { return DotWriter(graph).Write(); }

}  // namespace picture
