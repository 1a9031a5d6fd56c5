// The order of declarations: the algorithm on graphs, and what it makes of models.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "model/model.h"
#include "output/ordering.h"
#include "tests/support/export.h"

namespace {

using model::Element;
using model::Symbol;
using support::ExpectOutcomes;
using support::ExportBench;
using support::OutcomeCase;

using Graph = std::vector<std::vector<std::size_t>>;  // the successors of each node

mdktoidl::Ordering Order(const Graph& graph) {
  mdktoidl::DependencyGraph dependencies;
  for (const auto& successors : graph) {
    dependencies.AddNode();
    for (const std::size_t successor : successors) dependencies.AddDependency(successor);
  }
  return mdktoidl::OrderByDependencies(dependencies);
}

/// The definition of the order, as slow as it comes: from each node a walk of its own through all
/// that it depends on.
class NaiveOrder {
 public:
  explicit NaiveOrder(const Graph& graph) : graph_(graph) {
    for (std::size_t node = 0; node < graph.size(); ++node) {
      std::vector<std::size_t> found, visited;
      Walk(node, node, found, visited);
      found.push_back(node);
      for (const std::size_t each : found) AddOnce(each, order);
    }
    std::sort(cyclic.begin(), cyclic.end());
  }

  std::vector<std::size_t> order, cyclic;

 private:
  static bool AddOnce(std::size_t node, std::vector<std::size_t>& list) {
    if (std::find(list.begin(), list.end(), node) != list.end()) return false;
    list.push_back(node);
    return true;
  }

  void Walk(std::size_t node, std::size_t origin, std::vector<std::size_t>& found,
            std::vector<std::size_t>& visited) {
    for (const std::size_t next : graph_[node]) {
      if (next == origin) {
        AddOnce(origin, cyclic);
      } else if (AddOnce(next, visited)) {
        Walk(next, origin, found, visited);
        AddOnce(next, found);
      }
    }
  }

  const Graph& graph_;
};

TEST(AgentOrder, IsThatOfTheNaiveWalkOnRandomGraphs) {
  std::mt19937 random(20240229);
  for (int round = 0; round < 4000; ++round) {
    Graph graph(1 + random() % 9);
    const std::size_t edges = random() % (2 * graph.size() + 1);
    for (std::size_t edge = 0; edge < edges; ++edge) {
      graph[random() % graph.size()].push_back(random() % graph.size());
    }
    const NaiveOrder expected(graph);
    const mdktoidl::Ordering ordering = Order(graph);
    ASSERT_EQ(ordering.order, expected.order) << testing::PrintToString(graph);
    ASSERT_EQ(ordering.cyclic, expected.cyclic) << testing::PrintToString(graph);
  }
}

TEST(AgentOrder, IsFoundForAnyDepthWithoutRecursion) {
  Graph chain(300'000);
  for (std::size_t node = 0; node + 1 < chain.size(); ++node) chain[node] = {node + 1};
  EXPECT_EQ(Order(chain).order.front(), chain.size() - 1);
  EXPECT_TRUE(Order(chain).cyclic.empty());
  chain.back() = {0};
  EXPECT_EQ(Order(chain).cyclic.size(), chain.size());
}

TEST(AgentOrder, DeclaresBeforeUse) {
  const OutcomeCase cases[] = {
      {"a chain against the order of creation; the independent one keeps its place",
       [](ExportBench& b, Element& m) {
         auto& a = b.Struct(m, "A");
         b.Attribute(b.Struct(m, "Alone"), "x", "long");
         auto& c = b.Struct(m, "C");
         auto& d = b.Struct(m, "D");
         b.Attribute(a, "c", c);
         b.Attribute(c, "d", d);
         b.Attribute(d, "x", "long");
       },
       R"(
struct D {
    long x;
};

struct C {
    D d;
};

struct A {
    C c;
};

struct Alone {
    long x;
};)"},
      {"what is nested in a sibling: modules, interfaces and bounds",
       [](ExportBench& b, Element& m) {
         auto& first = b.Struct(b.Module(m, "First"), "S");
         auto& user = b.Operation(b.Interface(m, "User"), "op");
         auto& in = b.Struct(b.Interface(m, "Nest"), "In");
         b.Attribute(first, "in", in);
         b.Parameter(user, "in", in);
         b.Range(b.Attribute(in, "xs", "long"), 0, b.Constant(b.Module(m, "Last"), "N", "long", 4));
       },
       R"(Warning - attribute M::Nest::In::xs has an anonymous template type; consider using a typedef instead

module Last {
    const long N = 4;
};

interface Nest {
    
    struct In {
        sequence<long, M::Last::N> xs;
    };
};

module First {
    
    struct S {
        M::Nest::In in;
    };
};

interface User {
    void op(in M::Nest::In in);
};)"},
      {"what a declaration uses inside and around itself is no cycle of the next one",
       [](ExportBench& b, Element& m) {
         auto& outer = b.Struct(m, "Outer");
         auto& n = b.Module(m, "N");
         auto& inner = b.Struct(n, "Inner");
         b.Attribute(b.Struct(n, "User"), "inner", inner);
         b.Attribute(inner, "outer", outer);
         b.Attribute(outer, "x", "long");
         b.Attribute(b.Struct(m, "After"), "x", "long");
       },
       R"(
struct Outer {
    long x;
};

module N {
    
    struct Inner {
        Outer outer;
    };
    
    struct User {
        Inner inner;
    };
};

struct After {
    long x;
};)"},
  };
  ExpectOutcomes(cases);
}

TEST(AgentOrder, BreaksCyclesWithForwardDeclarations) {
  const OutcomeCase cases[] = {
      {"a cycle of two, one that refers to itself, and one that only leads to a cycle",
       [](ExportBench& b, Element& m) {
         b.Attribute(b.Interface(m, "Leads"), "a", "long");
         auto& a = b.Interface(m, "A");
         auto& c = b.Interface(m, "B");
         auto& self = b.Interface(m, "Self");
         b.Parameter(b.Operation(a, "op"), "b", c);
         b.Returns(b.Operation(c, "op"), a);
         b.Attribute(self, "other", self);
         b.Attribute(*m.Entities(Symbol("OwnedMember"))[0], "s", self);
       },
       R"(interface A;
interface B;
interface Self;

interface Self {
    attribute Self other;
};

interface Leads {
    attribute long a;
    attribute Self s;
};

interface B {
    A op();
};

interface A {
    void op(in B b);
};)"},
      {"a struct, and an exception and a module, which have no forward declaration",
       [](ExportBench& b, Element& m) {
         auto& s = b.Struct(m, "S");
         auto& e = b.Exception(m, "E");
         auto& n = b.Module(m, "N");
         auto& in = b.Struct(n, "In");
         b.Attribute(s, "in", in);
         b.Attribute(in, "e", e);
         b.Attribute(e, "s", s);
       },
       R"(Warning - DefinitionM::E cannot be a forward declaration
Warning - DefinitionM::N cannot be a forward declaration
struct S;

exception E {
    S s;
};

module N {
    
    struct In {
        E e;
    };
};

struct S {
    M::N::In in;
};)"},
  };
  ExpectOutcomes(cases);
}

// --- Cost ----------------------------------------------------------------------------------------

#ifdef __OPTIMIZE__
constexpr std::size_t count = 100'000;
#else
constexpr std::size_t count = 20'000;  // the checks of such a build take their time
#endif

/// Exports structs of one member each; the least of three times. `next` gives the number of the
/// struct that a member refers to, or its own for a member of a predefined type.
std::clock_t Cost(const std::function<std::size_t(std::size_t)>& next) {
  ExportBench bench;
  auto& module = bench.Module("M");
  std::vector<Element*> structs;
  for (std::size_t number = 0; number < count; ++number) {
    structs.push_back(&bench.Struct(module, "S" + std::to_string(number)));
  }
  for (std::size_t number = 0; number < count; ++number) {
    const std::size_t other = next(number);
    if (other == number) {
      bench.Attribute(*structs[number], "x", "long");
    } else {
      bench.Attribute(*structs[number], "x", *structs[other]);
    }
  }
  auto& artifact = bench.Artifact({&module});
  std::clock_t least = std::numeric_limits<std::clock_t>::max();
  for (int round = 0; round < 3; ++round) {
    const std::clock_t start = std::clock();  // of this process, whatever else the machine does
    EXPECT_EQ(bench.Run(&artifact).Diagnostics(), "");
    least = std::min(least, std::clock() - start);
  }
  return least;
}

TEST(AgentOrder, CostsNoMoreForChainsCyclesAndHubs) {
  constexpr std::clock_t margin = 4;
  const std::clock_t independent = Cost([](std::size_t number) { return number; });
  const std::clock_t chain =
      Cost([](std::size_t number) { return std::min(number + 1, count - 1); });
  const std::clock_t cycle = Cost([](std::size_t number) { return (number + 1) % count; });
  const std::clock_t hub = Cost([](std::size_t) { return count / 2; });
  EXPECT_LT(chain, margin * independent);
  EXPECT_LT(cycle, margin * independent);
  EXPECT_LT(hub, margin * independent);
}

}  // namespace
