// The order of declarations: the algorithm on graphs, and what it makes of models.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "output/ordering.h"
#include "tests/support/export.h"

namespace {

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

TEST(AgentOrder, DeclaresBeforeUseAndBreaksCycles) {
  const support::SmallCase cases[] = {
      {"what is nested in a sibling: modules, interfaces and bounds",
       "module First { struct S { field in : M::Nest::In } } "
       "interface User { op op { in x : M::Nest::In } } "
       "interface Nest { struct In { field xs [ M::Last::N ] } } module Last { const N = 4 }",
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
    void op(in M::Nest::In x);
};)"},
      {"what a declaration uses inside and around itself is no cycle of the next one",
       "struct Outer { field x } module N { struct Inner { field outer : M::Outer } "
       "struct User { field inner : M::N::Inner } } struct After { field x }",
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
      {"a struct, and an exception and a module, which have no forward declaration",
       "struct S { field in : M::N::In } exception E { field s : M::S } "
       "module N { struct In { field e : M::E } }",
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
  support::ExpectOutcomes(cases);
}

}  // namespace
