// Declarations as IDL text, as far as the examples don't show them: modules, structs, exceptions,
// enumerations, constants and comments.
#include <gtest/gtest.h>

#include <string>

#include "model/model.h"
#include "tests/support/export.h"

namespace {

using model::Element;
using support::ExpectOutcomes;
using support::ExportBench;
using support::OutcomeCase;

TEST(AgentModule, ClassifiesItsMembersByMetaclassAndThenByMarking) {
  const OutcomeCase cases[] = {
      {"the first marking of two decides; artifacts give nothing",
       [](ExportBench& b, Element& m) {
         b.Mark(b.Struct(m, "A"), "CORBAInterface");
         b.Attribute(b.Mark(b.Exception(m, "B"), "CORBAStruct"), "x", "long");
         b.Class(m, "C", "CORBAArtifact");
         b.Make(m, "Artifact", "D", "CORBAArtifact");
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
      {"a visibility that isn't given is public, and nothing is readonly",
       [](ExportBench& b, Element& m) {
         auto& s = b.Struct(m, "S");
         b.Set(b.Attribute(s, "x", "TypeCode"), "Visibility", "VkPublic");
         b.Set(b.Attribute(s, "readonly", "Charstring"), "Changeability", "CkFrozen");
       },
       "\nstruct S {\n    CORBA::TypeCode x;\n    string readonly;\n};"},
      {"nothing that could be a member, but members",
       [](ExportBench& b, Element& m) {
         auto& s = b.Struct(m, "S");
         b.Operation(s, "op");
         b.Set(b.Attribute(s, "hidden", "long"), "Visibility", "VkProtected");
         b.Set(b.Constant(s, "HIDDEN", "long", 1), "Visibility", "VkPrivate");
       },
       "\nstruct S {\n};"},
      {"a constant",
       [](ExportBench& b, Element& m) { b.Constant(b.Struct(m, "S"), "C", "long", 1); },
       "Warning - Constant not allowed in struct M::S; generating non-constant member instead\n"
       "\nstruct S {\n    long C;\n};"},
      {"an exception, which may have constants",
       [](ExportBench& b, Element& m) {
         auto& e = b.Exception(m, "E");
         b.Constant(e, "C", "long", 1);
         b.Set(b.Attribute(e, "hidden", "long"), "Visibility", "VkPrivate");
       },
       "\nexception E {\n    long C;\n};"},
      {"an enumeration without literals", [](ExportBench& b, Element& m) { b.Enum(m, "E", {}); },
       "\nenum E {\n    \n};"},
  };
  ExpectOutcomes(cases);
}

TEST(AgentConstant, FollowsWhatItsValueUses) {
  const support::SmallCase cases[] = {
      {"a constant and an enumerator of an interface",
       "const A = M::I::B const C : M::I::Shape = round "
       "interface I { const B = 7 enum Shape { literal round } }",
       R"(
interface I {
    const long B = 7;
    
    enum Shape {
        round
    };
};
const long A = M::I::B;
const M::I::Shape C = M::I::round;)"},
      {"three in a circle and one that leads to it",
       "const A = C const B = A const C = B const D = C const Sound = 1",
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
  const std::string text =
      "module First { const DERIVED = Second::BASE } module Second { const BASE = 12 }";
  EXPECT_EQ(support::ExportSmallModel(text).Body(),
            "\n\n\nmodule Second {\n    const long BASE = 12;\n};"
            "\n\nmodule First {\n    const long DERIVED = Second::BASE;\n};");
}

TEST(AgentComment, IsWrittenLineByLineBeforeItsDeclaration) {
  const OutcomeCase cases[] = {
      {"line ends, blanks and several comments",
       [](ExportBench& b, Element& m) {
         auto& e = b.Comment(b.Exception(m, "E"), "first\r\nsecond \t\r\n\n  indented */ \n");
         b.Comment(b.Comment(e, ""), "   ");
         b.Comment(b.Enum(m, "F", {"A"}), "one");
         b.Comment(b.Signal(b.Interface(m, "I"), "s"), "two");
       },
       R"(
// first
// second
// 
//   indented */
// 
exception E {
};

// one
enum F {
    A
};

interface I {
    // two
    oneway void s();
};)"},
  };
  ExpectOutcomes(cases);
}

}  // namespace
