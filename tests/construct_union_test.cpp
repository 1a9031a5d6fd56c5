// Unions as IDL text: discriminators, labels and what is wrong with them.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>

#include "model/model.h"
#include "tests/support/export.h"
#include "tests/support/process.h"

namespace {

using model::Element;
using model::Symbol;
using support::ExpectOutcomes;
using support::ExportBench;
using support::Operand;
using support::OutcomeCase;
using Labels = std::initializer_list<std::string_view>;

Element& Union(ExportBench& b, Element& owner, std::string_view name, const Operand& type) {
  auto& made = b.Class(owner, name, "CORBAUnion");
  b.Attribute(made, "which", type);
  return made;
}

Element& Case(ExportBench& b, Element& owner, std::string_view name, const Operand& type,
              Labels labels, bool isDefault = false) {
  auto& made = b.Attribute(owner, name, type);
  auto& mark = b.Model().Apply(made, b.Model().Stereotype("case"));
  if (labels.size() > 0)
    b.Model().SetListTag(mark, Symbol("label"), {labels.begin(), labels.size()});
  if (isDefault) b.Model().SetTag(mark, Symbol("isDefault"), "true");
  return made;
}

void BuildUnions(ExportBench& b, Element& m) {
  auto& near = b.Enum(m, "Near", {"n1", "n2", "n3"});
  auto& far = b.Enum(b.Interface(m, "Shapes"), "Far", {"f1", "f2"});
  auto& character = Union(b, m, "ByChar", "char");
  Case(b, character, "a", "long", {"a", "'b'", "'", "\\", "\\n", "1"});
  auto& boolean = Union(b, m, "ByBoolean", "boolean");
  Case(b, boolean, "no", "long", {"False"});
  Case(b, boolean, "rest", b.Template("array", {"short", 4}), {}, true);
  auto& inScope = Union(b, m, "ByNear", near);
  b.Comment(Case(b, inScope, "a", "long", {"M::n1"}), "a case");
  Case(b, inScope, "b", far, {"n3"}, true);
  auto& elsewhere = Union(b, m, "ByFar", far);
  Case(b, elsewhere, "a", "long", {"f1"});
  b.Range(Case(b, elsewhere, "self", elsewhere, {"Far::f2"}), 0, "*");
  auto& simple = b.Mark(Union(b, m, "Simple", ""), "CORBAUnion", {{"isSimple", "true"}});
  b.SetType(*simple.Entities(Symbol("OwnedMember"))[0], near);
  Case(b, simple, "a", "long", {});
  Case(b, simple, "rest", "long", {}, true);
  Case(b, simple, "b", "long", {});
}

constexpr std::string_view unions =
    R"(Warning - union case M::ByBoolean::rest has an anonymous template type; consider using a typedef instead
Warning - union case M::ByFar::self has an anonymous template type; consider using a typedef instead
union ByFar;

enum Near {
    n1, 
    n2, 
    n3
};

interface Shapes {
    
    enum Far {
        f1, 
        f2
    };
};

union ByChar switch (char) {
    case 'a':
    case 'b':
    case '\'':
    case '\\':
    case '\n':
    case '1':
        long a;
};

union ByBoolean switch (boolean) {
    case FALSE:
        long no;
    default:
        short rest[4];
};

union ByNear switch (Near) {
    // a case
    case n1:
        long a;
    case n3:
    default:
        M::Shapes::Far b;
};

union ByFar switch (M::Shapes::Far) {
    case M::Shapes::f1:
        long a;
    case M::Shapes::f2:
        sequence<ByFar> self;
};

union Simple switch (Near) {
    case n1:
        long a;
    default:
        long rest;
    case n2:
        long b;
};)";

TEST(ConstructUnion, SpellsItsLabelsForItsDiscriminatorAndACompilerTakesThem) {
  ExportBench bench;
  auto& module = bench.Module("M");
  BuildUnions(bench, module);
  EXPECT_EQ(bench.Export({&module}).Outcome(), unions);
  const auto judged = support::RunProcess({IDLEXPORT_OMNIIDL, "out/Out.idl"});
  EXPECT_EQ(judged.status, 0) << judged.errors;
}

TEST(ConstructUnion, ReportsWhatIsWrongWithIt) {
  const OutcomeCase cases[] = {
      {"discriminators that can't tell cases apart",
       [](ExportBench& b, Element& m) {
         auto& loop = b.Class(m, "Loop", "CORBATypedef");
         b.Generalize(loop, loop);
         auto& list = b.Class(m, "List", "CORBATypedef");
         b.Attribute(list, "base", b.Template("array", {"long", 2}));
         Case(b, Union(b, m, "Of7", "wchar"), "a", "long", {"1"});
         Case(b, Union(b, m, "Of5", loop), "a", "long", {"1"});
         Case(b, Union(b, m, "Of6", list), "a", "long", {"1"});
       },
       R"(Warning - DefinitionM::Loop cannot be a forward declaration
Error - union M::Of5 has a discriminator that is no integer, char, boolean or enum
Error - union M::Of6 has a discriminator that is no integer, char, boolean or enum
Error - union M::Of7 has a discriminator that is no integer, char, boolean or enum
)"},
      {"labels of a simple union, too few enumerators, an unknown label, no label",
       [](ExportBench& b, Element& m) {
         auto& e = b.Enum(m, "E", {"one"});
         auto& simple = b.Class(m, "Simple", "");
         b.Attribute(b.Mark(simple, "CORBAUnion", {{"isSimple", "true"}}), "which", e);
         Case(b, simple, "a", "long", {"one"});
         Case(b, simple, "b", "long", {});
         auto& plain = Union(b, m, "Plain", e);
         Case(b, plain, "a", "long", {"two"});
         Case(b, plain, "b", "long", {});
         Case(b, plain, "c", "long", {" "});
       },
       R"(Warning - union case M::Plain::a has a case label two that is not present in the union's discriminator type
Warning - union case M::Simple::a has a case label that is ignored due to isSimple being set
Error - union case M::Plain::b has no case label
Error - union case M::Plain::c has no case label
Error - union case M::Simple::b has no case label
)"},
  };
  ExpectOutcomes(cases);
}

}  // namespace
