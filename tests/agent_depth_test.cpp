// Models that are very deep, that lead in circles or that own an element in several places: the
// agent's stack stays small and its time grows with the model.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/cost.h"
#include "tests/support/export.h"
#include "tests/support/small_stack.h"

namespace {

using model::Element;
using model::Symbol;
using support::ExportBench;
using support::Exported;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;

#ifdef __OPTIMIZE__
constexpr std::size_t many = 100'000;
#else
constexpr std::size_t many = 16'000;  // unoptimised and checked code takes its time
#endif

std::string Named(const char* name, std::size_t number) { return name + std::to_string(number); }

/// Makes `count` things in a module and links each with the next; the last with the first in a
/// circle, with none otherwise.
template <typename MakeOne, typename Link>
void Chain(std::size_t count, bool isCircle, MakeOne makeOne, Link link) {
  std::vector<Element*> made;
  for (std::size_t number = 0; number < count; ++number) made.push_back(makeOne(number));
  for (std::size_t number = 0; number + 1 < count; ++number) link(*made[number], *made[number + 1]);
  if (isCircle) link(*made.back(), *made.front());
}

using Build = void (*)(ExportBench& bench, Element& module, std::size_t count, bool isCircle);

/// Interfaces and values.
void BuildGenerals(ExportBench& b, Element& m, std::size_t count, bool isCircle) {
  for (const char* mark : {"CORBAInterface", "CORBAValue"}) {
    Chain(
        count, isCircle,
        [&](std::size_t number) { return &b.Interface(m, Named(mark, number), mark); },
        [&](Element& special, Element& general) { b.Generalize(special, general); });
  }
}

/// The first definition tells the cases of a union apart, too.
void BuildTypedefs(ExportBench& b, Element& m, std::size_t count, bool isCircle) {
  Element* first = nullptr;
  Chain(
      count, isCircle,
      [&](std::size_t number) {
        auto& made = b.Class(m, Named("T", number), "CORBATypedef");
        if (first == nullptr) first = &made;
        if (number + 1 == count && !isCircle) b.Attribute(made, "of", "long");
        return &made;
      },
      [&](Element& alias, Element& aliased) { b.Attribute(alias, "of", aliased); });
  auto& choice = b.Class(m, "Choice", "CORBAUnion");
  b.Attribute(choice, "kind", *first);
  b.Mark(b.Keyword(b.Attribute(choice, "rest", "long"), "case"), "case", {{"isDefault", "true"}});
}

/// Every constant bounds a sequence, too.
void BuildConstants(ExportBench& b, Element& m, std::size_t count, bool isCircle) {
  auto& holder = b.Struct(m, "Holder");
  Chain(
      count, isCircle,
      [&](std::size_t number) {
        auto& made = b.Constant(m, Named("C", number), "long", 7);
        b.Range(b.Attribute(holder, Named("x", number), "octet"), 0, made);
        return &made;
      },
      [&](Element& constant, Element& next) { b.Default(constant, next); });
}

void BuildTemplates(ExportBench& b, Element& m, std::size_t count, bool isCircle) {
  Element* outermost = nullptr;
  Chain(
      count, isCircle,
      [&](std::size_t number) {
        const bool isLast = number + 1 == count && !isCircle;
        auto& made = isLast ? b.Template("sequence", {"long"}) : b.Template("sequence", {});
        if (outermost == nullptr) outermost = &made;
        return &made;
      },
      [&](Element& outer, Element& inner) {
        outer.AddEntity(Symbol("ActualTemplateParameter"), inner);
      });
  b.Attribute(b.Class(m, "Deep", "CORBATypedef"), "of", *outermost);
}

const std::string finished = "IDL exporter finished.\n";
const std::string clean = "started...\n" + finished;
const std::string warned = " warnings" + finished;

struct ShapeCase {
  const char* what;
  Build build;
  bool isCircle;
  std::string ending;  // of the messages
};

void PrintTo(const ShapeCase& shape, std::ostream* out) { *out << shape.what; }

class AgentDepth : public testing::TestWithParam<ShapeCase> {};

TEST_P(AgentDepth, CostsTimeByItsSizeAndNoStack) {
  const auto cost = [](std::size_t count) {
    ExportBench bench;
    auto& module = bench.Module("M");
    GetParam().build(bench, module, count, GetParam().isCircle);
    auto& artifact = bench.Artifact({&module});
    return support::CostOf(
        [&] { EXPECT_THAT(bench.Run(&artifact).Messages(), EndsWith(GetParam().ending)); });
  };
  support::OnSmallStack([&cost] { support::ExpectLinearCost(many, cost); });
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, AgentDepth,
    testing::Values(
        ShapeCase{"generalizations", BuildGenerals, false, clean},
        ShapeCase{"circles of generalizations", BuildGenerals, true, clean},
        ShapeCase{"type definitions", BuildTypedefs, false, clean},
        ShapeCase{"a circle of type definitions", BuildTypedefs, true, warned},
        ShapeCase{"constants", BuildConstants, false, warned},
        ShapeCase{"a circle of constants", BuildConstants, true, warned},
        ShapeCase{"templates", BuildTemplates, false, clean},
        ShapeCase{
            "a circle of templates", BuildTemplates, true,
            "A parameter of sequence template has incorrect type\n\nIDL exporter aborted.\n"}));

// --- Modules -------------------------------------------------------------------------------------

/// What an export says of modules N1, N2... in M, each inside the one before; the last holds a
/// struct.
std::string MessagesOfNested(std::size_t depth, const char* mapping) {
  std::string messages;
  support::OnSmallStack([&] {
    ExportBench bench;
    auto& module = bench.Module("M");
    Element* innermost = &module;
    for (std::size_t level = 1; level <= depth; ++level) {
      innermost = &bench.Module(*innermost, Named("N", level));
    }
    bench.Attribute(bench.Struct(*innermost, "S"), "x", "long");
    messages = bench.Export({&module}, {{"fileMapping", mapping}}).Messages();
  });
  return messages;
}

TEST(AgentDepthOfModules, EndsWithAClearTextAndTheStackStaysSmall) {
  for (const char* mapping : {"ONE_FILE", "MODULE_FLAT", "MODULE_STRUCTURED"}) {
    SCOPED_TRACE(mapping);
    EXPECT_THAT(MessagesOfNested(20, mapping), EndsWith(clean));
    EXPECT_THAT(MessagesOfNested(255, mapping), EndsWith(finished));
    const std::string tooDeep =
        "Internal error in IDL exporter agent: module N256 is nested too deeply\n"
        "\nIDL exporter aborted.\n";
    EXPECT_THAT(MessagesOfNested(256, mapping), EndsWith(tooDeep));
    EXPECT_THAT(MessagesOfNested(many, mapping), EndsWith(tooDeep));
  }
}

std::string LeftOut(const std::string& owner, const std::string& member) {
  return "Warning - " + owner +
         " has a member that is declared elsewhere and left out here: " + member + "\n";
}

TEST(AgentDepthOfModules, AModuleThatContainsItselfIsDeclaredOnce) {
  ExportBench bench;
  auto& outer = bench.Module("Outer");
  auto& inner = bench.Module(outer, "Inner");
  bench.Attribute(bench.Struct(inner, "S"), "x", "long");
  inner.AddEntity(Symbol("OwnedMember"), outer);
  inner.AddEntity(Symbol("OwnedMember"), inner);
  const Exported run = bench.Export({&outer});
  EXPECT_EQ(run.Diagnostics(), LeftOut("Outer::Inner", "Inner") + LeftOut("Outer::Inner", "Outer"));
  EXPECT_THAT(run.Body(), HasSubstr("module Outer {\n    \n    module Inner {"));
}

// Each of the levels stands twice in the one above, so there are more ways down than can be walked.
TEST(AgentDepthOfModules, WhatIsOwnedTwiceIsDeclaredOnce) {
  ExportBench bench;
  std::vector<Element*> levels{&bench.Module("M")};
  for (std::size_t level = 1; level <= 100; ++level) {
    levels.push_back(&bench.Module(*levels.back(), Named("N", level)));
    levels[level - 1]->AddEntity(Symbol("OwnedMember"), *levels[level]);
  }
  auto& interface = bench.Interface(*levels.back(), "I");
  auto& type = bench.Struct(interface, "S");
  bench.Attribute(type, "x", "long");
  bench.Parameter(bench.Operation(interface, "op"), "x", type);
  const auto members = interface.Entities(Symbol("OwnedMember"));
  for (Element* member : std::vector<Element*>(members.begin(), members.end())) {
    interface.AddEntity(Symbol("OwnedMember"), *member);
  }
  const Exported run = bench.Export({levels.front()});
  EXPECT_THAT(run.pieces, Contains("There were 0 errors and 102 warnings"));
  EXPECT_THAT(run.Body(), HasSubstr("op(in S x);"));
}

// A signal is declared in every interface that receives it.
TEST(AgentDepthOfModules, SignalsMayStandInSeveralInterfaces) {
  ExportBench bench;
  auto& module = bench.Module("M");
  auto& signal = bench.Signal(bench.Interface(module, "I"), "changed");
  bench.Interface(module, "J").AddEntity(Symbol("OwnedMember"), signal);
  EXPECT_EQ(bench.Export({&module}).Outcome(),
            "\ninterface I {\n    oneway void changed();\n};\n\ninterface J {\n"
            "    oneway void changed();\n};");
}

}  // namespace
