// Types as IDL text: predefined types, multiplicities, templates, type definitions, and names by
// their scope.
#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <regex>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "model/model.h"
#include "tests/support/export.h"

namespace {

using model::Element;
using model::Symbol;
using support::ExpectOutcomes;
using support::ExportBench;
using support::Operand;
using support::OutcomeCase;

/// The member "x" of a struct, in a module with constants.
class MemberTest : public testing::Test {
 protected:
  MemberTest() {
    for (const auto& [name, value] : {std::pair("Ten", 10), {"Zero", 0}, {"Real", 0}}) {
      constants_[name] = &bench_.Constant(module_, name, "long", value);
    }
    bench_.Default(Constant("Real"), "RealValue", "2.5");
    constants_["Inner"] = &bench_.Constant(bench_.Interface(module_, "I"), "Inner", "long", 3);
    constants_["Circle"] = &bench_.Constant(bench_.Package("Elsewhere"), "Circle", "long", 0);
    bench_.Default(Constant("Circle"), Constant("Circle"));
  }

  Element& Constant(const char* name) { return *constants_.at(name); }

  Element& Literal(std::string_view metaclass, std::string_view text) {
    return bench_.Set(bench_.Model().Create(Symbol(metaclass)), "ValueString", text);
  }

  Element& Ident(Element* definition) {
    Element& ident = bench_.Set(bench_.Model().Create(Symbol("Ident")), "Name", "ident");
    ident.SetEntity(Symbol("Definition"), definition);
    return ident;
  }

  /// What the struct's line says, or the errors, or the reason of an abort.
  std::string Line() {
    const support::Exported run = bench_.Export({&module_});
    const std::string diagnostics = run.Diagnostics();
    if (const auto at = diagnostics.find("Error - "); at != diagnostics.npos) {
      return diagnostics.substr(at);
    }
    const std::string text = run.Messages() + "\n" + run.Inside();
    std::smatch found;
    const std::regex line("Internal error in IDL exporter agent: (.*)|struct S \\{\n    (.*)");
    return std::regex_search(text, found, line) ? found.str(1) + found.str(2) : "";
  }

  void ExpectLines(std::initializer_list<std::pair<Operand, std::string>> cases) {
    for (const auto& [type, line] : cases) {
      bench_.SetType(member_, type);
      EXPECT_EQ(Line(), line);
    }
  }

  ExportBench bench_;
  Element& module_ = bench_.Module("M");
  Element& member_ = bench_.Attribute(bench_.Struct(module_, "S"), "x", "long");

 private:
  std::map<std::string, Element*> constants_;
};

const std::string attribute = "Error - attribute M::S::x";
const std::string notUnderstood = attribute + ": Failed to correctly interpret multiplicity\n";
const std::string notAllowed =
    attribute + ": Only integer literals and constants are allowed as multiplicitiy boundaries\n";

TEST_F(MemberTest, HasThePredefinedTypeThatItsNameMeans) {
  ExpectLines(
      {{"Real", "double x;"},
       {"Character", "char x;"},
       {"TypeCode", "CORBA::TypeCode x;"},
       {"long double", "long double x;"},
       {"Unknown", attribute + " has a type that is not marked as a CORBA type or not included in "
                               "the generation\n"}});
}

// --- Multiplicities ------------------------------------------------------------------------------

TEST_F(MemberTest, WithARangeIsASequenceOfItsUpperBound) {
  const std::pair<Operand, std::string> cases[] = {
      {"*", "sequence<long> x;"},
      {"-1", "sequence<long> x;"},
      {1, "long x;"},
      {2, "sequence<long, 2> x;"},
      {"0", notUnderstood},
      {"-7", notUnderstood},
      {"many", notUnderstood},
      {Constant("Ten"), "sequence<long, Ten> x;"},
      {Constant("Inner"), "sequence<long, M::I::Inner> x;"},
      {Constant("Zero"), notUnderstood},
      {Constant("Real"), notUnderstood},
      {Constant("Circle"),
       attribute + " has a multiplicity constant that could not be identified\n" + attribute +
           ": Circular references between constant values are not allowed\n"},
      {Ident(nullptr), attribute + " has a multiplicity constant that could not be identified\n"},
      {Literal("RealValue", "2.5"), notAllowed},
  };
  for (const auto& [upper, line] : cases) {
    member_.SetEntities(Symbol("Multiplicity"), {});
    bench_.Range(member_, 0, upper);
    if (upper.element != nullptr && upper.element->Metaclass() != Symbol("Attribute")) {
      member_.Entities(Symbol("Multiplicity"))[0]->SetEntity(Symbol("UpperBound"), upper.element);
    }
    EXPECT_EQ(Line(), line);
  }
}

TEST_F(MemberTest, ReportsALowerBoundThatIsNoNumberAndASecondRange) {
  auto& range = *bench_.Range(member_, 0, 5).Entities(Symbol("Multiplicity"))[0];
  range.SetEntity(Symbol("LowerBound"), &Literal("CharstringValue", "a"));
  EXPECT_EQ(Line(), notAllowed);
  bench_.Range(member_, 0, 1);
  EXPECT_EQ(Line(), notUnderstood);
}

TEST_F(MemberTest, WithABoundaryIsASequenceOfWhatTheOperatorAllows) {
  Element& five = Literal("IntegerValue", "5");
  Element& one = Literal("IntegerValue", "1");
  Element& least = Literal("IntegerValue", "-9223372036854775808");
  Element& ten = Ident(&Constant("Ten"));
  const std::tuple<const char*, Element*, std::string> cases[] = {
      {"<=", &five, "sequence<long, 5> x;"},
      {"==", &five, "sequence<long, 5> x;"},
      {"<", &five, "sequence<long, 4> x;"},
      {">=", &five, "sequence<long> x;"},
      {">", &five, "sequence<long> x;"},
      {"!=", &five, "sequence<long> x;"},
      {"==", &one, "long x;"},
      {"<", &one, notUnderstood},
      {"<=", &ten, "sequence<long, Ten> x;"},
      {"<", &ten, "sequence<long, 9> x;"},
      {"<", &least, notUnderstood},
      {"", &five, notUnderstood},
      {"<=", nullptr, notUnderstood},
      {">=", &Literal("RealValue", "1.5"), notAllowed},
  };
  for (const auto& [relation, boundary, line] : cases) {
    SCOPED_TRACE(relation);
    auto& multiplicity = bench_.Model().Create(Symbol("SimpleMultiplicity"));
    multiplicity.SetEntity(Symbol("Boundary"), boundary);
    bench_.Set(multiplicity, "Operator", relation);
    Element* const list[] = {&multiplicity};
    member_.SetEntities(Symbol("Multiplicity"), list);
    EXPECT_EQ(Line(), line);
  }
}

// --- Templates -----------------------------------------------------------------------------------

TEST_F(MemberTest, WithATemplateHasItsText) {
  ExportBench& b = bench_;
  auto& bounded = b.Template("string", {10});
  auto& color = b.Enum(module_, "Color", {"red"});
  auto& shape = b.Enum(b.Interface(module_, "J"), "Shape", {"round"});
  auto& longs = b.Template("sequence", {"long"});
  ExpectLines({
      {longs, "sequence<long> x;"},
      {b.Template("sequence", {"Natural", 5}), "sequence<unsigned long, 5> x;"},
      {b.Template("sequence", {longs}), "sequence<sequence<long> > x;"},
      {b.Template("sequence", {longs, 5}), "sequence<sequence<long>, 5> x;"},
      {b.Template("sequence", {color}), "sequence<Color> x;"},
      {b.Template("sequence", {shape, Constant("Ten")}), "sequence<M::J::Shape, 10> x;"},
      {bounded, "string<10> x;"},
      {b.Template("wstring", {Constant("Inner")}), "wstring<3> x;"},
      {b.Template("sequence", {bounded}), "sequence<string<10> > x;"},
      {b.Template("fixed", {10, 0}), "fixed<10, 0> x;"},
      {b.Template("array", {"long", 2, Constant("Ten")}), "long x[2][10];"},
      {b.Template("array", {b.Template("array", {shape, 3}), 2}), "M::J::Shape x[2][3];"},
      {b.Template("array", {b.Template("sequence", {bounded}), 2}), "sequence<string<10> > x[2];"},
  });
  bench_.SetType(member_, bounded);
  bench_.Range(member_, 0, "*");
  EXPECT_EQ(Line(), "sequence<string<10> > x;");
}

TEST_F(MemberTest, WithAWrongTemplateParameterAbortsTheRun) {
  ExportBench& b = bench_;
  auto& longs = b.Template("sequence", {"long"});
  auto& array = b.Template("array", {"long", 2});
  const auto wrong = [](const char* name) {
    return "A parameter of " + std::string(name) + " template has incorrect type";
  };
  auto& text = b.Template("string", {});
  text.AddEntity(Symbol("ActualTemplateParameter"), Literal("CharstringValue", "10"));
  auto& missing = b.Template("sequence", {"long"});
  missing.AddEntity(Symbol("ActualTemplateParameter"), Ident(nullptr));
  auto& real = b.Template("sequence", {});
  real.AddEntity(Symbol("ActualTemplateParameter"), Literal("RealValue", "2.5"));
  auto& itself = b.Template("sequence", {});
  itself.AddEntity(Symbol("ActualTemplateParameter"), itself);
  ExpectLines({
      {b.Template("sequence", {}), wrong("sequence")},
      {b.Template("sequence", {10}), wrong("sequence")},
      {b.Template("sequence", {"long", 0}), wrong("sequence")},
      {b.Template("sequence", {"long", 1, 2}), wrong("sequence")},
      {b.Template("sequence", {"long", Constant("Real")}), wrong("sequence")},
      {b.Template("sequence", {Constant("Ten")}), wrong("sequence")},
      {b.Template("sequence", {array}), wrong("sequence")},
      {b.Template("sequence", {b.Template("map", {"long"})}), wrong("sequence")},
      {itself, wrong("sequence")},
      {real, wrong("sequence")},
      {b.Template("string", {}), wrong("string")},
      {b.Template("string", {"long"}), wrong("string")},
      {text, wrong("string")},
      {b.Template("wstring", {longs}), wrong("wstring")},
      {b.Template("fixed", {10}), wrong("fixed")},
      {b.Template("fixed", {0, 0}), wrong("fixed")},
      {b.Template("array", {"long"}), wrong("array")},
      {b.Template("array", {"long", -2}), wrong("array")},
      {b.Template("sequence", {"long", Constant("Circle")}),
       "Circular references between constant values are not allowed"},
      {missing, "Failed to interpret ident correctly"},
      {b.Template("map", {"long"}), attribute + " has a type that could not be identified\n"},
  });
}

TEST(AgentTypedef, NamesAnyType) {
  const OutcomeCase cases[] = {
      {"on any classifier, by attribute and by generalization; and a box of a template",
       [](ExportBench& b, Element& m) {
         auto& code = b.Class(m, "Code", "CORBATypedef");
         b.Generalize(b.DataType(m, "Later", "CORBATypedef"), code);
         b.Attribute(code, "of", "TypeCode");
         auto& color = b.Enum(b.Interface(m, "I"), "Color", {"red"});
         b.Generalize(b.Interface(m, "Paint", "CORBATypedef"), color);
         auto& predefined = b.Set(b.Model().Create(Symbol("DataType")), "Name", "wstring");
         b.Generalize(b.Class(m, "Name", "CORBATypedef"), predefined);
         b.Attribute(b.Class(m, "Box", "CORBABoxedValue"), "of", b.Template("sequence", {color}));
       },
       R"(typedef CORBA::TypeCode Code;
typedef Code Later;

interface I {
    
    enum Color {
        red
    };
};
typedef M::I::Color Paint;
typedef wstring Name;
valuetype Box sequence<M::I::Color>;)"},
  };
  ExpectOutcomes(cases);
}

// --- Names by scope ------------------------------------------------------------------------------

TEST(AgentScope, DecidesHowATypeIsNamed) {
  const support::SmallCase cases[] = {
      {"the deliberate comparison of texts: what stands in M::AB counts as inside M::A",
       "module A { interface S } module AB { struct T { field s : M::A::S } }",
       R"(
module A {
    
    interface S {
    };
};

module AB {
    
    struct T {
        S s;
    };
};)"},
      {"a bound and an element that a nearer declaration of their name hides",
       "const N = 10 enum Color { literal RED } module Q { const N = 20 interface Color "
       "struct S { field x : M::Color [ ::M::N ] } }",
       R"(Warning - attribute M::Q::S::x has an anonymous template type; consider using a typedef instead
const long N = 10;

enum Color {
    RED
};

module Q {
    const long N = 20;
    
    interface Color {
    };
    
    struct S {
        sequence<M::Color, M::N> x;
    };
};)"},
  };
  ExpectOutcomes(cases);
}

TEST(AgentScope, OfATopLevelDeclarationIsEmpty) {
  EXPECT_EQ(support::ExportSmallModel(
                "module M { struct S { field top : Top } } interface Top { attr m : M }")
                .Body(),
            "\n\ninterface Top;\n\ninterface Top {\n    attribute M m;\n};"
            "\n\nmodule M {\n    \n    struct S {\n        Top top;\n    };\n};");
}

}  // namespace
