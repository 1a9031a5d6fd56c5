// Type definitions, sequences, boxed values and constants as IDL text, with every type in them.
#include <gtest/gtest.h>

#include <string_view>

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
