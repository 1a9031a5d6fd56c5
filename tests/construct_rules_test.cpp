// What each construct of IDL must and mustn't hold: what is refused is refused by a compiler as
// well, and what lies close to it is accepted by both, repaired where it has to be.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "tests/support/export.h"
#include "tests/support/process.h"
#include "tests/support/small_model.h"

namespace {

using model::Element;
using model::Symbol;
using support::ExportBench;
using support::ProcessResult;
using testing::HasSubstr;

/// What stands in the module M; what is said of it, nothing for what is legal; and what is written
/// for it, where that matters.
struct RuleCase {
  std::string_view members;
  std::string_view finding;
  std::string_view text = "";
};

class Trial {
 public:
  explicit Trial(std::string_view members) {
    const bool hasModule = members.starts_with("module");
    const std::string text =
        hasModule ? std::string(members) : "module M { " + std::string(members) + " }";
    support::WriteFile(directory_.Path() / "model.uml", support::SmallModel(text));
  }

  ProcessResult Export(const char* way) const {
    return support::RunProcess({IDLEXPORT_COMMAND, way, "-o", "out", "model.uml"},
                               directory_.Path());
  }

  /// What the compiler says; empty when it accepts the file.
  std::string CompilerErrors() const {
    const ProcessResult compiled =
        support::RunProcess({IDLEXPORT_OMNIIDL, "-bdump", "out/Out.idl"}, directory_.Path());
    return compiled.status == 0 ? "" : compiled.errors;
  }

  std::string Written() const { return support::ReadFile(directory_.Path() / "out/Out.idl"); }

 private:
  support::ScratchDirectory directory_;
};

/// A compiler without components can't judge all of them.
void ExpectJudgements(std::span<const RuleCase> cases, bool isCompiled = true) {
  for (const auto& [members, finding, text] : cases) {
    SCOPED_TRACE(members);
    const Trial trial(members);
    const ProcessResult run = trial.Export("--quiet");
    EXPECT_EQ(run.status == 0, finding.empty()) << run.errors;
    EXPECT_THAT(run.output + run.errors, HasSubstr(std::string(finding)));
    if (!finding.empty()) {
      const ProcessResult verbatim = trial.Export("--verbatim");
      if (verbatim.status != 0) continue;
    }
    EXPECT_THAT(trial.Written(), HasSubstr(std::string(text)));
    if (!isCompiled) continue;
    EXPECT_EQ(trial.CompilerErrors().empty(), finding.empty()) << trial.Written();
  }
}

TEST(ConstructRules, ConstantsHaveValuesOfTheirTypes) {
  const RuleCase cases[] = {
      {"const A : double = 3", "", "double A = 3.0;"},
      {"const A : double = -0x10", "", "double A = -16.0;"},
      {"const A : float = 017", "", "float A = 15.0;"},
      {"const A : double = .5 const B : double = 3e4 const C : double = 0", "", "C = 0.0;"},
      {"const A : double = 'a'", "constant M::A: 'a' is no value of double"},
      {"const A = 2147483647 const B = -2147483647 const C = 0x7fffffff", "", "C = 0x7fffffff;"},
      {"const A = 2147483648", "constant M::A: 2147483648 is no value of long"},
      {"const A = 3.0", "3.0 is no value of long"},
      {"const A : unsigned_long = 4294967295", ""},
      {"const A : unsigned_long = -1", "constant M::A: -1 is no value of unsigned long"},
      {"const A : short = -32768 const B : short = -32769", "-32769 is no value of short"},
      {"const A : octet = 255 const B : unsigned_long_long = 18446744073709551615", ""},
      {"const A : octet = 256", "256 is no value of octet"},
      {"const A : unsigned_long_long = 18446744073709551616", "is no value of unsigned long long"},
      {"const A : boolean = true const B : boolean = FALSE const C : boolean = M::A", "",
       "A = TRUE;"},
      {"const A : boolean = 1", "1 is no value of boolean"},
      {"const A : char = 'a' const B : char = '\\n' const C : char = '\\xe4'", ""},
      {"const A : char = L'a' const B : wchar = 'b' const C : wchar = 'ä'", "", "B = L'b';"},
      {"const A : char = 'ä'", "", "A = '\\xe4';"},
      {"const A : char = '€'", "is no value of char"},
      {"const A : char = '\\400'", "is no value of char"},
      {"const A : char = \"a\"", "is no value of char"},
      {"const A : string = \"a\" const B : string = \"\" const C : wstring = \"c\"", "",
       "C = L\"c\";"},
      {"const A : string = \"a\\0b\"", "is no value of string"},
      {"const A : string = 'a'", "is no value of string"},
      {"const A : string = 5", "5 is no value of string"},
      {"const A = 5 const B : short = M::A const C : octet = M::B", ""},
      {"const A = 70000 const B : short = M::A",
       "constant M::B: constant M::A is no value of short"},
      {"const A = 3 const B : double = M::A", "constant M::A is no value of double"},
      {"const A : double = 3 const B : float = M::A", ""},
      {"const A : char = 'a' const B : wchar = M::A", "constant M::A is no value of wchar"},
      {"enum E { literal p literal q } const A : M::E = p const B : M::E = A", ""},
      {"enum E { literal p } const A : M::E = 0", "0 is no value of enum M::E"},
      {"enum E { literal p } enum F { literal q } const A : M::E = p const B : M::F = A",
       "constant M::A is no value of enum M::F"},
      {"typedef T : octet const A : M::T = 256", "256 is no value of octet"},
      {"const A : any = 1", "constant M::A is of any, of which IDL has no constants"},
      {"struct S { field x } const A : M::S = 1",
       "is of struct M::S, of which IDL has no constants"},
      {"sequence Q : long const A : M::Q = 1", "of which IDL has no constants"},
  };
  ExpectJudgements(cases);
}

TEST(ConstructRules, UnionsTellTheirCasesApart) {
  const RuleCase cases[] = {
      {"union U { switch k case a = 1 case b = 2 default c }", ""},
      {"union U { switch k case a = 1 case b = 0x1 }",
       "union case M::U::b: label 0x1 is that of case M::U::a already"},
      {"const K = 1 union U { switch k case a = K case b = 2 }", "", "case K:"},
      {"const K = 1 union U { switch k case a = K case b = 1 }", "label 1 is that of case M::U::a"},
      {"module N { const K = 1 } module M { union U { switch k case a = N::K } }", ""},
      {"interface I { const K = 1 } interface J : M::I { union U { switch k case a = K } }", "",
       "case K:"},
      {"union U { switch k case a = M::K case b = ::M::L } const K = 1 const L = 2", "",
       "case M::K:"},
      {"const K = 70000 union U { switch k : short case a = K }",
       "label constant M::K is no value of short"},
      {"const K : char = 'a' union U { switch k case a = K }", "constant M::K is no value of long"},
      {"union U { switch k case a = X }", "union case M::U::a: label X is no value of long"},
      {"union U { switch k : short case a = 70000 }", "label 70000 is no value of short"},
      {"union U { switch k : unsigned_short case a = -1 }",
       "label -1 is no value of unsigned short"},
      {"union U { switch k : char case a = x case b = ä }", "", "case '\\xe4':"},
      {"union U { switch k : char case a = x case b = '\\x78' }", "is that of case M::U::a"},
      {"union U { switch k : char case a = xy }", "label xy is no value of char"},
      {"union U { switch k : boolean case a = true case b = FALSE }", ""},
      {"union U { switch k : boolean case a = true case b = TRUE }", "label TRUE is that of"},
      {"union U { switch k : boolean case a = 1 }", "label 1 is no value of boolean"},
      {"union U { switch k : boolean case a = true default b }", ""},
      {"union U { switch k : boolean case a = true case b = false default c }",
       "union case M::U::c is the default, but the labels are all values of boolean"},
      {"enum E { literal p literal q } union U { switch k : M::E case a = p default b }", ""},
      {"enum E { literal p literal q } union U { switch k : M::E case a = p case b = q default c }",
       "the labels are all values of enum M::E"},
      {"enum E { literal p } union U { switch k : M::E case a = p case b = M::p }",
       "label enumerator M::E::p is that of case M::U::a"},
      {"enum E { literal p } union U { switch k : M::E case a = r }",
       "label r is no value of enum M::E"},
      {"enum E { literal p } const K : M::E = p union U { switch k : M::E case a = K }", ""},
      {"union U { switch k default a default b }",
       "union case M::U::b is the default, but so is case M::U::a"},
      {"union U { switch k : octet case a = 1 }", "no integer, char, boolean or enum"},
  };
  ExpectJudgements(cases);
}

TEST(ConstructRules, DeclarationsHaveMembersAndUseWhatTheyMay) {
  const RuleCase cases[] = {
      {"exception X { } interface I { } struct S { field x }", ""},
      {"struct S { }", "struct M::S has no members"},
      {"struct S { private x }", "struct M::S has no public members"},
      {"enum E { }", "enum M::E has no enumerators"},
      {"module N { } struct S { field x }", ""},
      {"module M { module N { module O { } } struct S { field x } }", ""},
      {"module M { module N { } }", ""},
      {"exception X { } interface I { op f { raises M::X } }", ""},
      {"struct S { field x } interface I { op f { raises M::S } }",
       "operation M::I::f: struct M::S is no exception; give it one"},
      {"exception X { } struct S { field a : M::X }", "field M::S::a: exception M::X is no type"},
      {"exception X { } interface I { attr a : M::X }", "exception M::X is no type"},
      {"exception X { } interface I { op f : M::X { } }",
       "operation M::I::f: exception M::X is no"},
      {"exception X { } interface I { op f { in p : M::X } }", "exception M::X is no type"},
      {"exception X { } typedef T : M::X", "typedef M::T: exception M::X is no type"},
      {"exception X { } sequence Q : M::X", "sequence M::Q: exception M::X is no type"},
      {"exception X { } boxed B : M::X", "boxed value M::B: exception M::X is no type"},
      {"struct S { field a : native }", "field M::S::a is of the type native"},
      {"struct S { field a : TypeCode field b : any }", ""},
      {"const N = 0 struct S { field a [ N ] }", "Failed to correctly interpret multiplicity"},
      {"const N : double = 3 typedef D : double sequence Q : long struct S { field a [ N ] }",
       "field M::S::a is bounded by constant M::N, which is no positive integer of 32 bits"},
      {"const N : long_long = 4294967296 struct S { field a [ N ] }",
       "is bounded by constant M::N"},
      {"struct S { field a [ 4294967296 ] }", "field M::S::a has the size 4294967296"},
  };
  ExpectJudgements(cases);
}

TEST(ConstructRules, InterfacesInheritAndUseWhatTheyMay) {
  const RuleCase cases[] = {
      {"abstraction A { } interface I : M::A { } local L : M::I { }", ""},
      {"interface I { } abstraction A : M::I { }",
       "interface M::A is abstract, but inherits inter"},
      {"local L { } interface I : M::L { }", "interface M::I is not local, but inherits interface"},
      {"struct S { field x } interface I : M::S { }",
       "interface M::I: struct M::S is no interface"},
      {"interface A { } typedef T : M::A interface I : M::T { }", ""},
      {"local L { } local K { attr a : M::L op f { in x : M::L } }", ""},
      {"local L { } struct S { field a : M::L }", ""},
      {"local L { } interface I { op f { in x : M::L } }",
       "parameter M::I::f::x can be called from elsewhere, but uses interface M::L, which is "
       "local"},
      {"local L { } interface I { op f : M::L { } }", "operation M::I::f can be called from"},
      {"local L { } struct S { field a : M::L } sequence Q : M::S interface I { attr a : M::Q }",
       "attribute M::I::a can be called from elsewhere, but uses sequence M::Q"},
      {"local L { } exception X { field a : M::L } interface I { op f { raises M::X } }",
       "operation M::I::f can be called from elsewhere, but uses exception M::X"},
      {"local L { } abstraction A { attr a : M::L }", "attribute M::A::a can be called"},
      {"local L { } value V { state s : M::L }", "state member M::V::s can be called"},
      {"local L { } value V { op f { in x : M::L } } boxed B : M::L", ""},
  };
  ExpectJudgements(cases);
}

TEST(ConstructRules, ValueTypesInheritAndSupportWhatTheyMay) {
  const RuleCase cases[] = {
      {"value A { state x } value B : M::A truncatable { state y }", ""},
      {"abstract A { op f } abstract B : M::A { } value C : M::A { }", ""},
      {"abstract A { state x }",
       "state member M::A::x cannot stand in the abstract value type M::A"},
      {"abstract A { factory make }", "factory M::A::make cannot stand in the abstract value type"},
      {"value A { } abstract B : M::A { }", "value type M::B is abstract, but inherits value type"},
      {"value A { } value B { } value C : M::A , M::B { }",
       "value type M::C inherits value type M::B, which is not abstract, behind another base"},
      {"abstract A { } value B { } value C : M::A , M::B { }", "", "valuetype C : B, A"},
      {"abstract A { } value B { } value C : M::A truncatable , M::B { }",
       "inherits value type M::B, which is not abstract, behind another base"},
      {"value A { } value B : M::A , M::A truncatable { }",
       "value type M::B inherits value type M::A twice"},
      {"custom A { } value B : M::A { }", "value type M::B is not custom, but inherits value type"},
      {"value A { } custom B : M::A { } custom C : M::B { }", ""},
      {"value A { } custom B : M::A truncatable { }", "cannot have a truncated generalization"},
      {"interface I { } abstraction A { } value V : M::A , M::I { }", "", "supports I, A"},
      {"interface I { } interface J { } value V : M::I , M::J { }",
       "value type M::V supports both interface M::I and interface M::J"},
      {"interface I { } interface J : M::I { } value V : M::I { } value W : M::V , M::J { }", ""},
      {"interface I { } interface J { } value V : M::I { } value W : M::V { } value X : M::W , "
       "M::J { }",
       "value type M::X supports interface M::J, which is not derived from interface M::I"},
      {"interface I { } interface J { } abstract V : M::I { } abstract W : M::J { } value X : M::V "
       ", "
       "M::W { }",
       "value type M::X supports interface M::I, which is not derived from interface M::J"},
      {"value A { } value V { finder find }",
       "operation M::V::find cannot be a finder in value type"},
      {"interface I { finder find }", "operation M::I::find cannot be a factory or finder"},
      {"value A { } boxed B : M::A", "boxed value M::B cannot box value type M::A"},
      {"value A { } typedef T : M::A boxed B : M::T",
       "boxed value M::B cannot box value type M::A"},
      {"boxed A : long boxed B : M::A", "boxed value M::B cannot box boxed value M::A"},
      {"interface I { } boxed A : M::I boxed B : any", ""},
  };
  ExpectJudgements(cases);
}

TEST(ConstructRules, LabelsOfOtherFilesAreIncluded) {
  const support::Exported run = support::ExportSmallModel(
      "module A { union U { switch k case a = B::K } } module B { const K = 1 }",
      "isVerbatim=\"false\" fileMapping=\"MODULE_FLAT\"");
  EXPECT_THAT(run.files.at("A.idl"), HasSubstr("#include \"B.idl\""));
}

TEST(ConstructRules, CommentsEndWithTheirLines) {
  const RuleCase cases[] = {
      {"struct S -- 'as in C:\\' { field x } struct T { field y : M::S }", "", "// as in C:\\ .\n"},
      {"struct S -- 'what?\?/' { field x } struct T { field y : M::S }", "", "// what?\?/ .\n"},
      {"struct S -- 'a&#x7f;b' { field x } struct T { field y : M::S }", "", "// a b\n"},
      {"struct S -- 'a\\ b' { field x } struct T { field y : M::S }", "", "// a\\ b\n"},
  };
  ExpectJudgements(cases);
}

TEST(ConstructRules, ComponentsUseWhatTheyMay) {
  const RuleCase cases[] = {
      {"interface I { } event E { } component C { facet f : M::I sink s : M::E }", ""},
      {"value V { } component C { facet f : M::V }",
       "port M::C::f: value type M::V is no interface"},
      {"value V { } component C { sink s : M::V }",
       "port M::C::s: value type M::V is no event type"},
  };
  ExpectJudgements(cases, false);
}

/// Members of the module M that a small model can't say; the words behind are a `RuleCase`'s.
struct BuiltCase {
  const char* what;
  void (*build)(ExportBench& bench, Element& module);
  std::string_view finding;
  std::string_view text = "";
};

Element& WithContext(ExportBench& b, Element& m, std::initializer_list<std::string_view> strings) {
  auto& operation = b.Operation(b.Interface(m, "I"), "op");
  auto& mark = b.Model().Apply(operation, b.Model().Stereotype("CORBAOperation"));
  b.Model().SetTag(mark, Symbol("overrideIsDefaultAsync"), "true");
  b.Model().SetListTag(mark, Symbol("context"), {strings.begin(), strings.size()});
  return operation;
}

Element& Price(ExportBench& b, Element& m, int digits, int scale) {
  auto& price = b.Class(m, "Price", "CORBATypedef");
  b.Attribute(price, "of", b.Template("fixed", {digits, scale}));
  return price;
}

constexpr BuiltCase builtCases[] = {
    {"an array as state",
     [](ExportBench& b, Element& m) {
       b.Attribute(b.Value(m, "V"), "grid", b.Template("array", {"long", 2, 3}));
     },
     "", "public long grid[2][3];"},
    {"a fixed-point constant",
     [](ExportBench& b, Element& m) {
       auto& price = Price(b, m, 5, 2);
       b.Default(b.Constant(m, "A", price, 0), "RealValue", "-1.25");
       b.Constant(m, "B", price, 3);
     },
     "", "A = -1.25d;"},
    {"too many digits in a fixed-point constant",
     [](ExportBench& b, Element& m) {
       b.Default(b.Constant(m, "A", Price(b, m, 5, 2), 0), "RealValue", "1234567.5");
     },
     "constant M::A: 1234567.5 is no value of fixed<5, 2>"},
    {"31 digits", [](ExportBench& b, Element& m) { Price(b, m, 31, 31); }, ""},
    {"32 digits", [](ExportBench& b, Element& m) { Price(b, m, 32, 2); },
     "typedef M::Price is a fixed<32, 2>"},
    {"more digits behind the point", [](ExportBench& b, Element& m) { Price(b, m, 5, 6); },
     "typedef M::Price is a fixed<5, 6>"},
    {"a bounded string constant",
     [](ExportBench& b, Element& m) {
       auto& text = b.Class(m, "Text", "CORBATypedef");
       b.Attribute(text, "of", b.Template("string", {3}));
       b.Default(b.Constant(m, "A", text, 0), "CharstringValue", "\"a\\x41c\"");
     },
     ""},
    {"a bounded string constant that is too long",
     [](ExportBench& b, Element& m) {
       auto& text = b.Class(m, "Text", "CORBATypedef");
       b.Attribute(text, "of", b.Template("string", {3}));
       b.Default(b.Constant(m, "A", text, 0), "CharstringValue", "\"abcd\"");
     },
     "constant M::A: \"abcd\" is no value of string<3>"},
    {"a constant without a text",
     [](ExportBench& b, Element& m) {
       b.Default(b.Constant(m, "A", "long", 0), "OpaqueExpression", "");
     },
     "constant M::A:  is no value of long"},
    {"a line end in a string",
     [](ExportBench& b, Element& m) {
       b.Default(b.Constant(m, "A", "string", 0), "CharstringValue", "\"a\nb\"");
     },
     "", "A = \"a\\nb\";"},
    {"a context",
     [](ExportBench& b, Element& m) {
       WithContext(b, m, {"\"A*\"", "\"b.c\""});
     },
     "", "context (\"A*\", \"b.c\")"},
    {"a context without quotes",
     [](ExportBench& b, Element& m) {
       WithContext(b, m, {"A", " "});
     },
     "", "op() context (\"A\");"},
    {"an empty context", [](ExportBench& b, Element& m) { WithContext(b, m, {""}); }, "", "op();"},
    {"no name in a context", [](ExportBench& b, Element& m) { WithContext(b, m, {"\"1 2\""}); },
     "operation M::I::op: \"1 2\" is no context string"},
    {"a parameter without a direction",
     [](ExportBench& b, Element& m) {
       b.Parameter(b.Operation(b.Interface(m, "I"), "op"), "p", "long", "DkSideways");
     },
     "parameter M::I::op::p has no direction"},
    {"a boxed value in an interface",
     [](ExportBench& b, Element& m) {
       b.Attribute(b.Make(b.Interface(m, "I"), "Syntype", "Box", "CORBABoxedValue"), "of", "long");
     },
     "boxed value M::I::Box cannot stand in interface M::I"},
};

TEST(ConstructRules, HoldForWhatOtherHostsSay) {
  for (const auto& [what, build, finding, text] : builtCases) {
    SCOPED_TRACE(what);
    for (const char* way : {"false", "true"}) {
      ExportBench bench;
      auto& module = bench.Module("M");
      build(bench, module);
      const support::Exported run = bench.Export({&module}, {{"isVerbatim", way}});
      const bool isUsual = way == std::string_view("false");
      if (isUsual) {
        EXPECT_THAT(run.Diagnostics(), HasSubstr(std::string(finding)));
        EXPECT_EQ(run.Diagnostics().find("Error"), finding.empty() ? std::string::npos : 0);
      }
      const bool isWritten = run.Diagnostics().find("Error") == std::string::npos;
      if (!isWritten || isUsual != finding.empty()) continue;
      EXPECT_THAT(run.Body(), HasSubstr(std::string(text)));
      const ProcessResult compiled =
          support::RunProcess({IDLEXPORT_OMNIIDL, "-bdump", "out/Out.idl"}, bench.Directory());
      EXPECT_EQ(compiled.status == 0, finding.empty()) << run.Body() << compiled.errors;
    }
  }
}

}  // namespace
