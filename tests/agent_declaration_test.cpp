// Declarations as IDL text: modules, structs, exceptions, enumerations, constants and comments.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "model/model.h"
#include "tests/support/export.h"

namespace {

using model::Element;
using model::Symbol;
using support::ExpectOutcomes;
using support::ExportBench;
using support::OutcomeCase;

TEST(AgentModule, ClassifiesItsMembersByMetaclassAndThenByMarking) {
  const OutcomeCase cases[] = {
      {"the rows of a package, in model order",
       [](ExportBench& b, Element& m) {
         b.Constant(m, "C", "long", 1);
         b.Class(m, "I", "CORBAInterface");
         b.Exception(m, "E");
         b.Enum(m, "Enum", {"A"});
         b.Interface(m, "J");
         b.Module(m, "N");
         b.Class(m, "A", "CORBAArtifact");
         b.Make(m, "Artifact", "B", "CORBAArtifact");
       },
       R"(Warning - module M::N is empty
const long C = 1;

interface I {
};

exception E {
};

enum Enum {
    A
};

interface J {
};

module N {
};)"},
      {"the first marking of two decides",
       [](ExportBench& b, Element& m) {
         b.Mark(b.Struct(m, "A"), "CORBAInterface");
         b.Attribute(b.Mark(b.Exception(m, "B"), "CORBAStruct"), "x", "long");
       },
       "\ninterface A {\n};\n\nstruct B {\n    long x;\n};"},
      {"what fits nowhere is passed over",
       [](ExportBench& b, Element& m) {
         b.Attribute(m, "plain", "long");
         b.Set(b.Constant(m, "hidden", "long", 1), "Visibility", "VkPrivate");
         b.Signal(m, "Signal");
         b.Class(m, "Unmarked", "");
         b.Class(m, "NoEnum", "CORBAEnum");
         b.Mark(b.DataType(m, "NoStruct", "CORBAStruct"), "CORBAInterface");
         b.Interface(m, "NoException", "CORBAException");
         b.Make(m, "Package", "NoModule");
         b.Operation(m, "op");
       },
       "Warning - module M is empty\n"},
      {"an attribute is a constant unless its tag says \"false\"",
       [](ExportBench& b, Element& m) {
         auto& odd = b.Attribute(m, "Odd", "long");
         b.Default(b.Mark(odd, "CORBAAttribute", {{"isConstant", "yes"}}), "IntegerValue", "1");
         b.Mark(b.Attribute(m, "no", "long"), "CORBAAttribute", {{"isConstant", "false"}});
         b.Mark(b.Attribute(m, "byDefault", "long"), "CORBAAttribute");
       },
       "const long Odd = 1;"},
  };
  ExpectOutcomes(cases);
}

TEST(AgentStruct, HasItsPublicAttributesAsMembers) {
  const OutcomeCase cases[] = {
      {"members in model order; a visibility that isn't given is public",
       [](ExportBench& b, Element& m) {
         auto& s = b.Struct(m, "S");
         b.Attribute(s, "y", "Charstring");
         b.Set(b.Attribute(s, "x", "TypeCode"), "Visibility", "VkPublic");
         b.Set(b.Attribute(s, "readonly", "unsigned long long"), "Changeability", "CkFrozen");
       },
       R"(
struct S {
    string y;
    CORBA::TypeCode x;
    unsigned long long readonly;
};)"},
      {"nothing that could be a member, but members",
       [](ExportBench& b, Element& m) {
         auto& s = b.Struct(m, "S");
         b.Operation(s, "op");
         b.Set(b.Attribute(s, "hidden", "long"), "Visibility", "VkProtected");
         b.Set(b.Constant(s, "HIDDEN", "long", 1), "Visibility", "VkPrivate");
       },
       "\nstruct S {\n};"},
      {"no members at all", [](ExportBench& b, Element& m) { b.Struct(m, "S"); },
       "Warning - struct M::S has no members\n\nstruct S {\n};"},
      {"a constant",
       [](ExportBench& b, Element& m) { b.Constant(b.Struct(m, "S"), "C", "long", 1); },
       "Warning - Constant not allowed in struct M::S; generating non-constant member instead\n"
       "\nstruct S {\n    long C;\n};"},
      {"an exception, which may be empty and have constants",
       [](ExportBench& b, Element& m) {
         b.Exception(m, "Empty");
         auto& e = b.Exception(m, "E");
         b.Constant(e, "C", "long", 1);
         b.Set(b.Attribute(e, "hidden", "long"), "Visibility", "VkPrivate");
         b.Attribute(e, "x", "any");
       },
       "\nexception Empty {\n};\n\nexception E {\n    long C;\n    any x;\n};"},
      {"a multiplicity and an array",
       [](ExportBench& b, Element& m) {
         auto& s = b.Struct(m, "S");
         b.Range(b.Attribute(s, "all", "long"), 0, "*");
         b.Attribute(s, "grid", b.Template("array", {"short", 2, 3}));
       },
       R"(Warning - attribute M::S::all has an anonymous template type; consider using a typedef instead
Warning - attribute M::S::grid has an anonymous template type; consider using a typedef instead

struct S {
    sequence<long> all;
    short grid[2][3];
};)"},
  };
  ExpectOutcomes(cases);
}

TEST(AgentEnumeration, HasALineForEachLiteral) {
  const OutcomeCase cases[] = {
      {"one", [](ExportBench& b, Element& m) { b.Enum(m, "E", {"A"}); }, "\nenum E {\n    A\n};"},
      {"three",
       [](ExportBench& b, Element& m) {
         b.Enum(m, "E", {"C", "A", "B"});
       },
       "\nenum E {\n    C, \n    A, \n    B\n};"},
      {"none", [](ExportBench& b, Element& m) { b.Enum(m, "E", {}); }, "\nenum E {\n    \n};"},
  };
  ExpectOutcomes(cases);
}

TEST(AgentConstant, WritesItsValueAsTheModelSpellsIt) {
  const OutcomeCase cases[] = {
      {"literals",
       [](ExportBench& b, Element& m) {
         b.Constant(m, "I", "Integer", 0);
         b.Default(b.Constant(m, "H", "octet", 0), "IntegerValue", "0x1F");
         b.Default(b.Constant(m, "R", "double", 0), "RealValue", "1.50e3");
         b.Default(b.Constant(m, "C", "char", 0), "CharacterValue", "'x'");
         b.Default(b.Constant(m, "S", "string", 0), "CharstringValue", "\"a b\"");
       },
       R"(const long I = 0;
const octet H = 0x1F;
const double R = 1.50e3;
const char C = 'x';
const string S = "a b";)"},
      {"a constant in scope, which is written first",
       [](ExportBench& b, Element& m) {
         auto& user = b.Constant(m, "A", "long", 0);
         b.Default(user, b.Constant(m, "B", "long", 7));
       },
       "const long B = 7;\nconst long A = B;"},
      {"a constant of an interface, which is written first",
       [](ExportBench& b, Element& m) {
         auto& user = b.Constant(m, "A", "long", 0);
         b.Default(user, b.Constant(b.Interface(m, "I"), "B", "long", 7));
       },
       "\ninterface I {\n    const long B = 7;\n};\nconst long A = M::I::B;"},
      {"enumerators, in scope and outside",
       [](ExportBench& b, Element& m) {
         auto& user = b.Constant(m, "A", "long", 0);
         auto& outer = b.Enum(m, "Color", {"red", "green"});
         auto& inner = b.Enum(b.Interface(m, "I"), "Shape", {"round"});
         b.SetType(user, outer);
         b.Default(user, *outer.Entities(Symbol("Literal"))[1]);
         b.Default(b.Constant(m, "B", inner, 0), *inner.Entities(Symbol("Literal"))[0]);
       },
       R"(
enum Color {
    red, 
    green
};
const Color A = green;

interface I {
    
    enum Shape {
        round
    };
};
const M::I::Shape B = M::I::round;)"},
  };
  ExpectOutcomes(cases);
}

TEST(AgentConstant, ReportsWhatIsWrongWithIt) {
  const std::string_view notExported =
      "is not marked as a CORBA type or not included in the generation\n";
  const std::pair<void (*)(ExportBench&, Element & constant), std::string> cases[] = {
      {[](ExportBench& b, Element& c) { b.SetType(c, b.Package("Foreign")); },
       " has a type that " + std::string(notExported)},
      {[](ExportBench&, Element& c) {
         c.SetEntity(Symbol("Target:Type"), nullptr), c.SetEntity(Symbol("Type"), nullptr);
       },
       " has a type that could not be identified\n"},
      {[](ExportBench& b, Element& c) { b.SetType(c, b.Template("string", {10})); },
       " cannot have a template type\n"},
      {[](ExportBench&, Element& c) { c.SetEntity(Symbol("DefaultValue"), nullptr); },
       " has no value\n"},
      {[](ExportBench& b, Element& c) { b.Default(c, "BooleanValue", "true"); },
       " has a value that is not supported\n"},
      {[](ExportBench& b, Element& c) {
         b.Default(c, b.Constant(b.Package("Foreign"), "D", "long", 1));
       },
       " has a value that " + std::string(notExported)},
      {[](ExportBench& b, Element& c) { b.Range(c, 0, "*"); }, " cannot have a multiplicity\n"},
  };
  for (const auto& [spoil, complaint] : cases) {
    ExportBench bench;
    auto& module = bench.Module("M");
    spoil(bench, bench.Constant(module, "C", "long", 1));
    EXPECT_EQ(bench.Export({&module}).Diagnostics(), "Error - constant M::C" + complaint);
  }
}

TEST(AgentConstant, ReportsEachOfACircle) {
  const OutcomeCase cases[] = {
      {"three in a circle and one that leads to it",
       [](ExportBench& b, Element& m) {
         auto& first = b.Constant(m, "A", "long", 0);
         auto& last = b.Constant(m, "C", "long", b.Constant(m, "B", "long", first));
         b.Default(first, last);
         b.Constant(m, "D", "long", last);
         b.Constant(m, "Sound", "long", 1);
       },
       R"(Warning - DefinitionM::A cannot be a forward declaration
Warning - DefinitionM::B cannot be a forward declaration
Warning - DefinitionM::C cannot be a forward declaration
Error - constant M::A: Circular references between constant values are not allowed
Error - constant M::B: Circular references between constant values are not allowed
Error - constant M::C: Circular references between constant values are not allowed
Error - constant M::D: Circular references between constant values are not allowed
)"},
  };
  ExpectOutcomes(cases);
}

TEST(AgentComment, IsWrittenLineByLineBeforeItsDeclaration) {
  const OutcomeCase cases[] = {
      {"line ends, blanks and several comments",
       [](ExportBench& b, Element& m) {
         auto& s = b.Comment(b.Struct(m, "S"), "first\r\nsecond \t\r\n\n  indented */ \n");
         b.Comment(b.Comment(s, ""), "   ");
         b.Comment(b.Attribute(s, "x", "long"), "one");
       },
       R"(
// first
// second
// 
//   indented */
// 
struct S {
    // one
    long x;
};)"},
      {"every other construct",
       [](ExportBench& b, Element& m) {
         b.Comment(b.Constant(m, "C", "long", 1), "constant");
         b.Comment(b.Enum(m, "E", {"A"}), "enumeration");
         b.Comment(b.Exception(m, "X"), "exception");
         auto& i = b.Comment(b.Interface(m, "I"), "interface");
         b.Comment(b.Operation(i, "op"), "operation");
         b.Comment(b.Attribute(i, "a", "long"), "attribute");
         b.Comment(b.Module(m, "N"), "module");
       },
       R"(Warning - module M::N is empty
// constant
const long C = 1;

// enumeration
enum E {
    A
};

// exception
exception X {
};

// interface
interface I {
    // operation
    void op();
    // attribute
    attribute long a;
};

// module
module N {
};)"},
  };
  ExpectOutcomes(cases);
}

}  // namespace
