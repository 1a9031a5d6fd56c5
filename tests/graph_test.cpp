// The picture of an export: its modules and interfaces, what uses what, and cycles.
#include "picture/graph.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "command/agent_run.h"
#include "placement/failure.h"
#include "tests/support/small_model.h"
#include "tests/support/xmi_files.h"

namespace {

using support::XmiFiles;
using testing::AllOf;
using testing::HasSubstr;

/// The graph of a small model, which is exported twice.
picture::Graph GraphOf(std::string_view model) {
  XmiFiles files;
  files.Write("model.uml", support::SmallModel(model)).Read();
  const support::ScratchDirectory scratch;
  picture::GraphMaker maker;
  for (int run = 0; run < 2; ++run) {
    command::AgentRun(files.Reader(), files["out"], scratch.Path(), &maker);
  }
  return std::move(maker).Finish();
}

/// Draws a small model into a file; returns its text.
std::string Drawn(std::string_view model, const std::string& name = "graph.dot") {
  const support::ScratchDirectory scratch;
  picture::WriteGraph(GraphOf(model), scratch.Path() / name);
  return support::ReadFile(scratch.Path() / name);
}

/// What the text draws, without how it looks: "{" a module, "}", nodes, edges with ">" for
/// inheritance and "!" for a cycle, on one line.
std::string Summary(const std::string& dot) {
  std::string summary;
  std::istringstream lines(dot);
  for (std::string line; std::getline(lines, line);) {
    line.erase(0, line.find_first_not_of(' '));
    if (line.starts_with("subgraph") || line.starts_with("digraph") || line == "}") continue;
    const std::size_t begin = line.find("label=\"") + 7;
    const std::size_t length = line.find('"', begin) - begin;
    const std::string label = begin < line.size() ? line.substr(begin, length) : "";
    if (line.starts_with("graph [label")) summary += "{" + label + "} ";
    if (line.starts_with("empty_")) summary += label + " ";
    if (!line.starts_with("n") || line.starts_with("node")) continue;
    const std::size_t arrow = line.find(" -> ");
    if (arrow == line.npos) {
      summary += line.substr(0, line.find(' ')) + "=" + label + " ";
      continue;
    }
    const std::string to = line.substr(arrow + 4);
    summary += line.substr(0, arrow) + "-" + (line.find("onormal") != line.npos ? ">" : "") +
               (line.find("#d0021b") != line.npos ? "!" : "") + to.substr(0, to.find(' ')) + " ";
  }
  return summary;
}

TEST(Graph, DrawsModulesNodesAndUses) {
  const std::pair<std::string_view, std::string> cases[] = {
      {"module M", "{M} (empty) "},
      {"interface I { attr self : I }", "n0=I "},
      {"module M { module N { interface I } interface J { op f : M::N::I { in x : M::N::I } } }",
       "{M} n1=J {N} n0=I n1-n0 "},
      {"module M { interface I interface J : M::I { attr i2 : M::I } }",
       "{M} n0=I n1=J n1-n0 n1->n0 "},
      {"module M { struct S { field e : M::F [*] } enum F { literal a } struct T { field s2 : M::S "
       "} interface I { struct X { field s3 : M::S } op f { raises M::E } } exception E }",
       "{M} n0=2 structs\\n1 exception\\n1 enum n1=I n1-n0 "},
      {"module A { struct S { field x } } module B { const N = 1 interface I { struct T { field "
       "many : A::S [ B::N ] } } value V : B::I }",
       "{A} n0=1 struct {B} n1=1 constant n2=I n3=«value type»\\nV n2-n0 n2-n1 n3->n2 "},
      {"module M { component C { facet port : M::I } interface I }",
       "{M} n0=«component»\\nC n1=I n0-n1 "},
      {"module M { interface I { op f : M::J } interface J { op g : M::K } interface K { op h : "
       "M::J } }",
       "{M} n0=I n1=J n2=K n0-n1 n1-!n2 n2-!n1 "},
      {"module M { interface I { op f : M::J } interface J : M::I }",
       "{M} n0=I n1=J n0-!n1 n1->!n0 "},
      {"module M { struct S { field t2 : M::T } struct T { field s2 : M::S [*] } struct U { field "
       "again : M::U [*] } }",
       "{M} n0=3 structs n0-!n0 "},
      {"module M { struct U { field again : M::U [*] } }", "{M} n0=1 struct "},
      {"module A { struct S { field y : B::S } } module B { struct S { field x } struct T { field "
       "z : A::S } }",
       "{A} n0=1 struct {B} n1=2 structs n0-!n1 n1-!n0 "},
  };
  for (const auto& [model, summary] : cases) {
    SCOPED_TRACE(model);
    EXPECT_EQ(Summary(Drawn(model)), summary);
  }
}

TEST(Graph, IsDrawnByGraphviz) {
  const std::string model =
      "module M { interface 'a&quot;b\\&amp;lt;\\n' { attr j : M::J } interface J { struct S { "
      "field x : M::I } } interface I { attr j2 : M::J } }";
  const std::string svg = Drawn(model, "graph.svg");
  EXPECT_THAT(svg,
              AllOf(HasSubstr("<svg "), HasSubstr("</svg>"), HasSubstr(">M</text>"),
                    HasSubstr("stroke=\"#d0021b\""), HasSubstr(">a&quot;b\\&amp;lt;\\n</text>")));
}

TEST(Graph, SaysWhyItCanNotBeDrawnAndLeavesNothing) {
  const support::ScratchDirectory scratch;
  support::WriteFile(scratch.Path() / "out.svg", "what was there before");
  const picture::Graph graph = GraphOf("interface I");
  const std::string path = std::getenv("PATH");
  const std::tuple<std::string, std::string, int, std::string> cases[] = {
      {"out.png", path, placement::kBadInput, "out.png': its name must end in .dot or .svg"},
      {"out", path, placement::kBadInput, "out': its name must end in .dot or .svg"},
      {"missing/out.dot", path, placement::kExportFailed, "out.dot': No such file or directory"},
      {"missing/out.svg", path, placement::kExportFailed, "out.svg': No such file or directory"},
      {"out.svg", "", placement::kExportFailed,
       "out.svg': there is no program 'dot'; install Graphviz"},
      {"out.svg", "/dev/null", placement::kExportFailed, "out.svg': can't run 'dot'"},
  };
  for (const auto& [file, searched, status, complaint] : cases) {
    SCOPED_TRACE(file);
    setenv("PATH", searched.c_str(), 1);
    try {
      picture::WriteGraph(graph, scratch.Path() / file);
      ADD_FAILURE();
    } catch (const placement::Failure& failure) {
      EXPECT_EQ(failure.Status(), status);
      EXPECT_THAT(failure.what(), HasSubstr(complaint));
    }
    setenv("PATH", path.c_str(), 1);
  }
  const auto left = support::ReadTree(scratch.Path());
  EXPECT_EQ(left.size(), 1u);
  EXPECT_EQ(left.at("out.svg"), "what was there before");
}

TEST(Graph, OfLongCyclesIsMadeWithoutRecursion) {
  std::string model;
  constexpr int length = 20000;
  for (int i = 0; i < length; ++i) {
    model += "interface I" + std::to_string(i) + " { attr next : I" +
             std::to_string((i + 1) % length) + " } ";
  }
  EXPECT_THAT(Drawn(model), HasSubstr("n19999 -> n0 [color=\"#d0021b\""));
}

}  // namespace
