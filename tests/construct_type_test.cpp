// Type definitions, sequences, boxed values, templates, bounds and constants as IDL text.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "model/model.h"
#include "tests/support/export.h"
#include "tests/support/process.h"

namespace {

using model::Element;
using model::Symbol;
using support::ExpectOutcomes;
using support::ExportBench;
using support::OutcomeCase;

Element& Typedef(ExportBench& b, Element& owner, std::string_view name,
                 const support::Operand& type) {
  auto& made = b.Class(owner, name, "CORBATypedef");
  b.Attribute(made, "base", type);
  return made;
}

Element& Sequence(ExportBench& b, Element& owner, std::string_view name,
                  const support::Operand& type) {
  auto& made = b.Class(owner, name, "CORBASequence");
  b.Attribute(made, "base", type);
  return made;
}

TEST(ConstructTypedef, NamesAnyType) {
  const OutcomeCase cases[] = {
      {"predefined types and declarations, by attribute and by generalization",
       [](ExportBench& b, Element& m) {
         auto& later = b.DataType(m, "Later", "CORBATypedef");
         b.Comment(Typedef(b, m, "Id", "unsigned long long"), "a number");
         b.Generalize(later, Typedef(b, m, "Code", "TypeCode"));
         auto& byInterface = b.Interface(m, "I", "CORBATypedef");
         b.Generalize(byInterface, b.Enum(b.Module(m, "N"), "E", {"A"}));
         auto& predefined = b.Set(b.Model().Create(Symbol("DataType")), "Name", "wstring");
         b.Generalize(b.Class(m, "Name", "CORBATypedef"), predefined);
       },
       R"(typedef CORBA::TypeCode Code;
typedef Code Later;
// a number
typedef unsigned long long Id;

module N {
    
    enum E {
        A
    };
};
typedef M::N::E I;
typedef wstring Name;)"},
      {"a self-reference by way of a sequence has its struct declared forward",
       [](ExportBench& b, Element& m) {
         auto& node = b.Struct(m, "Node");
         b.Attribute(node, "next", Sequence(b, m, "Nodes", node));
       },
       R"(Warning - DefinitionM::Nodes cannot be a forward declaration
struct Node;
typedef sequence<Node> Nodes;

struct Node {
    Nodes next;
};)"},
  };
  ExpectOutcomes(cases);
}

TEST(ConstructTemplate, IsWrittenInEveryForm) {
  static constexpr auto build = [](ExportBench& b, Element& m) {
    auto& far = b.Struct(b.Module(m, "N"), "Far");
    b.Attribute(far, "x", "long");
    auto& near = Typedef(b, m, "Near", "octet");
    auto& eight = b.Constant(m, "Eight", "long", b.Constant(m, "Other", "short", 8));
    Typedef(b, m, "Text", b.Template("string", {10}));
    Typedef(b, m, "Wide", b.Template("wstring", {eight}));
    Typedef(b, m, "Money", b.Template("fixed", {eight, 0}));
    Typedef(b, m, "Many", b.Template("sequence", {near}));
    Typedef(b, m, "Some", b.Template("sequence", {far, eight}));
    Typedef(b, m, "Rows", b.Template("sequence", {b.Template("sequence", {"long", 3})}));
    Typedef(b, m, "Deep",
            b.Template("sequence", {b.Template("sequence", {b.Template("string", {4})}), 5}));
    Typedef(b, m, "Grid", b.Template("array", {far, 2, eight}));
    Typedef(b, m, "Names", b.Template("array", {b.Template("string", {9}), 4}));
    Typedef(b, m, "Cube", b.Template("array", {b.Template("array", {near, 3}), 2}));
    Sequence(b, m, "Fars", far);
    auto& boxed = b.Class(m, "Box", "CORBABoxedValue");
    b.Attribute(boxed, "base", b.Template("sequence", {far}));
    b.Attribute(b.Class(m, "LongBox", "CORBABoxedValue"), "base", "long");
    auto& user = b.Struct(m, "User");
    b.Range(b.Attribute(user, "a", b.Template("string", {9})), 0, eight);
    b.Range(b.Attribute(user, "b", far), 0, "*");
  };
  const OutcomeCase cases[] = {
      {"templates", build,
       R"(Warning - attribute M::User::a has an anonymous template type; consider using a typedef instead
Warning - attribute M::User::b has an anonymous template type; consider using a typedef instead

module N {
    
    struct Far {
        long x;
    };
};
typedef octet Near;
const short Other = 8;
const long Eight = Other;
typedef string<10> Text;
typedef wstring<8> Wide;
typedef fixed<8, 0> Money;
typedef sequence<Near> Many;
typedef sequence<M::N::Far, 8> Some;
typedef sequence<sequence<long, 3> > Rows;
typedef sequence<sequence<string<4> >, 5> Deep;
typedef M::N::Far Grid[2][8];
typedef string<9> Names[4];
typedef Near Cube[2][3];
typedef sequence<M::N::Far> Fars;
valuetype Box sequence<M::N::Far>;
valuetype LongBox long;

struct User {
    sequence<string<9>, Eight> a;
    sequence<M::N::Far> b;
};)"}};
  ExpectOutcomes(cases);

  ExportBench bench;
  auto& module = bench.Module("M");
  build(bench, module);
  bench.Export({&module});
  const auto judged = support::RunProcess({IDLEXPORT_OMNIIDL, "out/Out.idl"});
  EXPECT_EQ(judged.status, 0) << judged.errors;
}

TEST(ConstructTemplate, AbortsForAParameterOfTheWrongKind) {
  const std::pair<std::string_view, Element& (*)(ExportBench&)> cases[] = {
      {"sequence", [](auto& b) -> auto& {return b.Template("sequence", {});
}
}  // namespace
, {"sequence", [](auto& b) -> auto& {return b.Template("sequence", {3});
}
}
, {"sequence", [](auto& b) -> auto& {return b.Template("sequence", {"long", 0});
}
}
, {"sequence", [](auto& b) -> auto& {return b.Template("sequence", {"long", "long"});
}
}
, {"sequence", [](auto& b) -> auto& {return b.Template("sequence", {"long", 2, 2});
}
}
, {"sequence",
   [](auto& b) -> auto& {return b.Template("sequence", {b.Template("array", {"long", 2})});
}
}
, {"sequence", [](auto& b) -> auto& {auto& loop = b.Template("sequence", {});
loop.AddEntity(Symbol("ActualTemplateParameter"), loop);
return loop;
}
}
, {"string", [](auto& b) -> auto& {return b.Template("string", {-1});
}
}
, {"string", [](auto& b) -> auto& {auto& constant = b.Constant(b.Package("P"), "C", "string", 1);
return b.Template("string", {b.Default(constant, "CharstringValue", "\"1\"")});
}
}
, {"wstring", [](auto& b) -> auto& {return b.Template("wstring", {1, 2});
}
}
, {"fixed", [](auto& b) -> auto& {return b.Template("fixed", {5});
}
}
, {"fixed", [](auto& b) -> auto& {return b.Template("fixed", {5, -1});
}
}
, {"array", [](auto& b) -> auto& {return b.Template("array", {"long"});
}
}
, {"array", [](auto& b) -> auto& {return b.Template("array", {"long", 2, 0});
}
}
,
}
;
for (const auto& [name, make] : cases) {
  ExportBench bench;
  auto& module = bench.Module("M");
  Typedef(bench, module, "T", make(bench));
  EXPECT_THAT(bench.Export({&module}).Messages(),
              testing::HasSubstr("A parameter of " + std::string(name) +
                                 " template has incorrect type\n\nIDL exporter aborted.\n"));
}
}

/// What a member "x" of type long becomes with a multiplicity.
std::string Bounded(const std::function<void(ExportBench&, Element& module, Element& x)>& bound) {
  ExportBench bench;
  auto& module = bench.Module("M");
  auto& member = bench.Attribute(bench.Struct(module, "S"), "x", "long");
  bound(bench, module, member);
  const auto exported = bench.Export({&module});
  const std::string body = exported.Body();
  const std::string opening = "struct S {\n        ";
  const std::size_t begin = body.find(opening) + opening.size();
  if (begin < opening.size()) return support::Replaced(exported.Diagnostics(), "\n", "|");
  return body.substr(begin, body.find(';', begin) - begin);
}

/// The same with a multiplicity that is a condition on one number.
std::string Condition(const char* relation, const char* number) {
  return Bounded([&](ExportBench& b, Element&, Element& x) {
    auto& condition = b.Make(x, "Condition", "", "", "Multiplicity");
    b.Set(b.Default(condition, "IntegerValue", number), "Operator", relation);
    condition.SetEntity(Symbol("Boundary"), condition.Entity(Symbol("DefaultValue")));
  });
}

TEST(ConstructMultiplicity, BecomesASequence) {
  EXPECT_EQ(Bounded([](ExportBench& b, Element&, Element& x) { b.Range(x, 0, 1); }), "long x");
  EXPECT_EQ(Bounded([](ExportBench& b, Element&, Element& x) { b.Range(x, 0, 7); }),
            "sequence<long, 7> x");
  EXPECT_EQ(Bounded([](ExportBench& b, Element&, Element& x) { b.Range(x, 3, "*"); }),
            "sequence<long> x");
  EXPECT_EQ(Bounded([](ExportBench& b, Element&, Element& x) { b.Range(x, 3, -1); }),
            "sequence<long> x");
  EXPECT_EQ(Bounded([](ExportBench& b, Element& m, Element& x) {
              b.Range(x, 0, b.Constant(m, "N", "long", 5));
            }),
            "sequence<long, N> x");
  EXPECT_EQ(Bounded([](ExportBench& b, Element& m, Element& x) {
              b.Range(x, 0, b.Constant(b.Interface(b.Module(m, "N"), "I"), "C", "long", 5));
            }),
            "sequence<long, M::N::I::C> x");
  EXPECT_EQ(Condition("<=", "9"), "sequence<long, 9> x");
  EXPECT_EQ(Condition("==", "9"), "sequence<long, 9> x");
  EXPECT_EQ(Condition("<", "9"), "sequence<long, 8> x");
  EXPECT_EQ(Condition("<", "2"), "long x");
  EXPECT_EQ(Condition(">=", "9"), "sequence<long> x");
  EXPECT_EQ(Condition(">", "9"), "sequence<long> x");
  EXPECT_EQ(Condition("!=", "9"), "sequence<long> x");
  const std::string fault =
      "Error - attribute M::S::x: Failed to correctly interpret multiplicity|";
  EXPECT_EQ(Condition("=>", "9"), fault);
  EXPECT_EQ(Condition("<", "1"), fault);
  EXPECT_EQ(Bounded([](ExportBench& b, Element&, Element& x) { b.Range(x, 0, 0); }), fault);
  EXPECT_EQ(Bounded([](ExportBench& b, Element&, Element& x) { b.Range(b.Range(x, 1, 2), 4, 5); }),
            fault);
}

TEST(ConstructConstant, ReachesAcrossModules) {
  ExportBench bench;
  auto& first = bench.Module("First");
  auto& second = bench.Module("Second");
  auto& base = bench.Constant(second, "BASE", "long", 12);
  auto& derived = bench.Constant(first, "DERIVED", "long", base);
  auto& user = bench.Struct(bench.Module(second, "Inner"), "User");
  bench.Range(bench.Attribute(user, "x", "long"), 0, base);
  bench.Constant(bench.Interface(first, "I"), "NEAR", "long", derived);
  EXPECT_EQ(bench.Export({&first, &second}).Body(), R"(


module Second {
    const long BASE = 12;
    
    module Inner {
        
        struct User {
            sequence<long, BASE> x;
        };
    };
};

module First {
    const long DERIVED = Second::BASE;
    
    interface I {
        const long NEAR = DERIVED;
    };
};)");
}

}  // namespace
