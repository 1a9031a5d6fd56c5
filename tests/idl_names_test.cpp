// Names are checked before the export by IDL's rules: an IDL compiler refuses what is warned of,
// and accepts what lies close to it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <span>
#include <string>
#include <tuple>
#include <vector>

#include "command/agent_run.h"
#include "tests/support/process.h"
#include "tests/support/small_model.h"
#include "tests/support/xmi_files.h"
#include "types/identifier.h"

namespace {

using diagnostics::Diagnostic;
using diagnostics::Severity;
using support::ProcessResult;
using support::XmiFiles;
using testing::ElementsAre;
using testing::IsEmpty;

/// What is found in a model that is read, by an export of it.
std::vector<Diagnostic> FoundIn(XmiFiles& files) {
  const support::ScratchDirectory scratch;
  const command::AgentRun run(files.Reader(), files["out"], scratch.Path(), nullptr);
  std::vector<Diagnostic> found = run.FileNameDiagnostics();
  std::ranges::copy_if(run.Told(), std::back_inserter(found), &Diagnostic::isAboutLegality);
  return found;
}

/// "error [rule] text", one for each finding.
std::vector<std::string> Findings(const std::string& model) {
  XmiFiles files;
  files.Write("model.uml", model).Read();
  EXPECT_THAT(files.Diagnostics(), IsEmpty());
  std::vector<std::string> lines;
  for (const Diagnostic& found : FoundIn(files)) {
    const std::string severity = found.severity == Severity::kError ? "error " : "";
    lines.push_back(severity + "[" + found.rule + "] " + found.text);
  }
  return lines;
}

/// The model of a plain export.
std::string Plain(const std::string& text, const std::string& settings = "") {
  return support::SmallModel(text, "isVerbatim=\"true\" " + settings);
}

/// What the compiler says about the model's export; empty when it accepts it.
std::string CompilerErrors(const std::string& model, const char* way = "--verbatim") {
  const support::ScratchDirectory directory;
  support::WriteFile(directory.Path() / "model.uml", model);
  const ProcessResult run =
      support::RunProcess({IDLEXPORT_COMMAND, way, "-o", "out", "model.uml"}, directory.Path());
  EXPECT_EQ(run.status, 0) << run.output << run.errors;
  const ProcessResult compiled =
      support::RunProcess({IDLEXPORT_OMNIIDL, "-bdump", "out/Out.idl"}, directory.Path());
  return compiled.status == 0 ? "" : compiled.errors;
}

/// Modules, or what stands in the module M; and what is found in them.
struct NameCase {
  std::string model;
  std::string finding;
};

/// The findings are all of one rule, and the compiler must refuse what is warned of, and only that;
/// unless it is repaired.
void ExpectFindings(const std::string& rule, std::span<const NameCase> cases,
                    bool isRepaired = false) {
  for (const auto& [text, finding] : cases) {
    SCOPED_TRACE(text);
    const std::string model =
        Plain(text.starts_with("module") ? text : "module M { " + text + " }");
    std::string found;
    for (const std::string& each : Findings(model)) found += (found.empty() ? "" : "; ") + each;
    EXPECT_EQ(support::Replaced(found, "[" + rule + "] ", ""), finding);
    const std::string errors = CompilerErrors(model);
    EXPECT_EQ(errors.empty(), finding.empty()) << errors;
    if (!isRepaired) continue;
    const std::string usual =
        support::SmallModel(text.starts_with("module") ? text : "module M { " + text + " }");
    EXPECT_EQ(CompilerErrors(usual, "--quiet"), "");
  }
}

TEST(IdlNames, MustBeIdentifiers) {
  const NameCase cases[] = {
      {"struct S1_a { field x2 }", ""},
      {"struct _S { field x }", ""},
      {"struct S { field 'two words' }",
       "field M::S::two words: 'two words' is no IDL identifier; 'two_words' would be one"},
      {"struct 1st { field x }", "struct M::1st: '1st' is no IDL identifier; 'st' would be one"},
      {"struct __S { field x }", "struct M::__S: '__S' is no IDL identifier; 'S' would be one"},
      {"enum E { literal größer }",
       "enumerator M::E::größer: 'größer' is no IDL identifier; 'gr_er' would be one"},
      {"interface I { op f { in '' } }", "parameter M::I::f:: has no name"},
      {"interface I { op 'f\\ng' }",
       "operation M::I::f\\ng: 'f\\ng' is no IDL identifier; 'f_g' would be one"},
  };
  ExpectFindings("idl-identifier", cases);
}

TEST(IdlNames, MustNotBeKeywords) {
  const NameCase cases[] = {
      {"struct S { field longer }", ""},
      {"struct _long { field _Object }", ""},
      {"struct entity { field composition }", ""},
      {"struct S { field _truncatable } struct T { field truncatable }",
       "field M::T::truncatable is named as the IDL keyword 'truncatable'"},
      {"struct union { field x }", "struct M::union is named as the IDL keyword 'union'"},
      {"struct S { field object }",
       "field M::S::object is named as the IDL keyword 'Object', but for capitals"},
      {"module Context { interface I { op f { in Default } } }",
       "module Context is named as the IDL keyword 'context', but for capitals; parameter "
       "Context::I::f::Default is named as the IDL keyword 'default', but for capitals"},
  };
  ExpectFindings("idl-keyword", cases);
}

/// What the compiler says about a struct of a name.
std::string CompiledAsStruct(const std::string& name) {
  const support::ScratchDirectory directory;
  support::WriteFile(directory.Path() / "a.idl", "struct " + name + " { long x; };\n");
  return support::RunProcess({IDLEXPORT_OMNIIDL, "-bdump", "a.idl"}, directory.Path()).errors;
}

TEST(IdlNames, KeywordsAreTheCompilers) {
  // It only warns of the words of components, and knows nothing of their implementation.
  for (const char* word : {"abstract", "TRUE", "valuebase", "typeprefix", "home", "primarykey",
                           "emits", "wstring", "multiple", "import", "setraises", "truncatable"}) {
    EXPECT_NE(CompiledAsStruct(word), "") << word;
    EXPECT_NE(mdktoidl::KeywordLike(word, false), "") << word;
  }
  for (const char* word : {"storage", "process", "executor", "name", "integer", "include"}) {
    EXPECT_EQ(CompiledAsStruct(word), "") << word;
    EXPECT_EQ(mdktoidl::KeywordLike(word, false), "") << word;
  }
  const std::string parts =
      "module A { composition C struct Process { field x } } module B { struct process { field x } "
      "}";
  EXPECT_THAT(
      Findings(Plain(parts)),
      ElementsAre(
          "[idl-keyword] struct A::Process is named as the IDL keyword 'process', but for capitals",
          "[idl-keyword] struct B::process is named as the IDL keyword 'process'"));
  EXPECT_EQ(Findings(Plain(parts, "fileMapping=\"MODULE_FLAT\"")).size(), 1U)
      << "in a file of its own B holds no composition";
}

TEST(IdlNames, MustDifferInAScope) {
  const NameCase cases[] = {
      {"module M { struct A { field x } } module M { struct B { field x } }", ""},
      {"struct A { field x } struct a { field x }", "struct M::a clashes with struct M::A"},
      {"struct _A { field x } struct A { field x }", "struct M::A clashes with struct M::_A"},
      {"module M { struct A { field x } } module M { exception A }",
       "exception M::A clashes with struct M::A"},
      {"module M { struct A { field x } } module m { struct B { field x } }",
       "module m clashes with module M"},
      {"module M { module N { const A = 1 } module N { const a = 2 } }",
       "constant M::N::a clashes with constant M::N::A"},
      {"struct S { field x field X }", "field M::S::X clashes with field M::S::x"},
      {"union U { switch d case x = 1 case X = 2 }", "case M::U::X clashes with case M::U::x"},
      {"enum E { literal a literal A }", "enumerator M::E::A clashes with enumerator M::E::a"},
      {"interface I { op f { in a out A } op g { in a } }",
       "parameter M::I::f::A clashes with parameter M::I::f::a"},
      {"interface I { attr f op F }", "operation M::I::F clashes with attribute M::I::f"},
      {"value V { state a private A }", "state member M::V::A clashes with state member M::V::a"},
  };
  ExpectFindings("name-clash", cases);
}

TEST(IdlNames, MustNotBeThatOfTheScopeAroundThem) {
  const NameCase cases[] = {
      {"module M { module N { struct M { field n } } }", ""},
      {"interface I { op f { in f in i } }", ""},
      {"struct m { field x }", "struct M::m has the name of the module around it"},
      {"module M { module M { const a = 1 } }", "module M::M has the name of the module around it"},
      {"exception E { field e }", "field M::E::e has the name of the exception around it"},
      {"interface I { op i }", "operation M::I::i has the name of the interface around it"},
      {"interface I { attr i : M::I }",
       "attribute M::I::i has the name of the interface around it"},
      {"enum E { literal m }", "enumerator M::E::m has the name of the module around it"},
  };
  ExpectFindings("name-hides-scope", cases);
}

TEST(IdlNames, OfEnumeratorsLieInTheScopeAround) {
  const NameCase cases[] = {
      {"enum E { literal a } interface I { enum F { literal a } }", ""},
      {"enum E { literal a } enum F { literal b literal A }",
       "enumerator M::F::A clashes with enumerator M::E::a"},
      {"enum E { literal a } struct A { field x }", "struct M::A clashes with enumerator M::E::a"},
      {"enum E { literal e }", "enumerator M::E::e clashes with enum M::E"},
  };
  ExpectFindings("enumerator-clash", cases);
}

TEST(IdlNames, MustNotBeThoseOfInheritedMembers) {
  const NameCase cases[] = {
      {"interface I { op f } interface J : M::I interface K : M::I interface L : M::J , M::K", ""},
      {"interface I { struct S { field x } } interface J : M::I { struct s { field x } }", ""},
      {"interface I { const f = 1 } interface J : M::I { op f }", ""},
      {"interface I { op J } value V : M::I value W : M::V", ""},
      {"interface I { op f } interface J : M::I interface K : M::J { attr F }",
       "attribute M::K::F clashes with the inherited operation M::I::f"},
      {"interface I { op f } interface J : M::I { enum E { literal f } }",
       "enumerator M::J::E::f clashes with the inherited operation M::I::f"},
      {"interface I { op f } interface J { attr F } interface K : M::I , M::J interface L : M::K",
       "interface M::K inherits both operation M::I::f and attribute M::J::F"},
      {"value V { state a } value W : M::V { private A }",
       "state member M::W::A clashes with the inherited state member M::V::a"},
      {"interface I { op f } value V : M::I { op f }",
       "operation M::V::f clashes with the inherited operation M::I::f"},
  };
  ExpectFindings("name-clash", cases);
}

TEST(IdlNames, MustNotBeThoseOfWhatTheScopeUses) {
  const std::string color = "module M { enum Color { literal red } ";
  const std::string other = "module O { struct T { field x } } module N { ";
  const NameCase cases[] = {
      {color + "interface I { op get : M::Color { in color } } }", ""},
      {color + "struct S { field tint : M::Color } } module N { struct color { field x } }", ""},
      {color + "module N { interface I { attr tint : M::Color } const color = 1 } }", ""},
      {color + "struct S { field color : M::Color } }",
       "field M::S::color clashes with enum M::Color, which is used in struct M::S"},
      {color + "struct S { field Color field tint : M::Color [*] } }",
       "field M::S::Color clashes with enum M::Color, which is used in struct M::S"},
      {color + "interface I { attr color op get : M::Color } }",
       "attribute M::I::color clashes with enum M::Color, which is used in interface M::I"},
      {color + "interface I { op color op put { in tint : M::Color } } }",
       "operation M::I::color clashes with enum M::Color, which is used in interface M::I"},
      {color + "interface I { op put { in color : M::Color } } }",
       "parameter M::I::put::color clashes with enum M::Color, which is used in operation "
       "M::I::put"},
      {color + "interface I { struct S { field c : M::Color } op color } }",
       "operation M::I::color clashes with enum M::Color, which is used in interface M::I"},
      {color + "union U { switch d : M::Color case red = red } }",
       "case M::U::red clashes with enumerator M::Color::red, which is used in union M::U"},
      {color + "interface I { union U { switch d : M::Color case tint = red } op RED } }",
       "operation M::I::RED clashes with enumerator M::Color::red, which is used in interface "
       "M::I"},
      {color + "interface I { op Color struct S { field tints : M::Color [*] } } }", ""},
      {color + "const Best : M::Color = red module N { const RED : M::Color = Best } }", ""},
      {color + "module N { const c : M::Color = red const RED = 1 } }",
       "constant M::N::RED clashes with enumerator M::Color::red, which is used in module M::N"},
      {"const N = 2 struct S { field n [ N ] }",
       "field M::S::n clashes with constant M::N, which is used in struct M::S"},
      {"module B { struct E { field x } } module C { struct b { field e : B::E } }",
       "struct C::b clashes with module B, which is used in struct C::b"},
      {"module B { struct E { field x } } module C { interface B { attr e : B::E } }",
       "interface C::B clashes with module B, which is used in interface C::B"},
      {"interface B interface I : M::B { op b }", ""},
      {"interface A { attr b } interface B interface I : M::A interface J : M::I { attr tint : "
       "M::B }",
       "attribute M::J::tint uses interface M::B, which the inherited attribute M::A::b hides"},
      {"module M { module P { struct T { field x } } interface A { attr m attr p } interface I : "
       "M::A { attr y : M::P::T } }",
       "attribute M::I::y uses struct M::P::T, which the inherited attribute M::A::m hides"},
      {other + "interface A { attr o op t } interface I : N::A { op f { in x : O::T } } }",
       "parameter N::I::f::x uses struct O::T, which the inherited attribute N::A::o hides"},
      {"module M { struct T { field x } } module M { struct S { field t : M::T } }",
       "field M::S::t clashes with struct M::T, which is used in struct M::S"},
      {"module M { struct T { field x } } module M { struct S { field y : M::T } }", ""},
      {"module M { struct T { field x } } module M { typedef U : M::T }", ""},
      {"module M { module N { struct T { field x } } } module M { struct S { field y : M::N::T } }",
       ""},
      {"exception E interface I { op f { in e raises M::E } }",
       "parameter M::I::f::e clashes with exception M::E, which is used in operation M::I::f"},
      {other + "struct S { field t : O::T } }", ""},
      {"module low { typedef L : long } module N { module K { typedef T : low::L } "
       "struct LOW { field x } module K { typedef Q : N::LOW } }",
       "module low clashes with struct N::LOW, which is used in module N::K"},
      {other + "struct S { field o : O::T } }",
       "field N::S::o clashes with module O, which is used in struct N::S"},
  };
  ExpectFindings("use-clash", cases, true);
}

TEST(IdlNames, MustMeanSomethingWhereTheyStandAlone) {
  const std::string other = "module O { exception E interface J { exception F } } module N { ";
  const NameCase cases[] = {
      {other + "interface I : O::J { op put { raises O::J::F } } }", ""},
      {other + "interface K : O::J interface I : N::K { op put { raises O::J::F } } }", ""},
      {other + "interface I { op put { raises O::E } } }",
       "operation N::I::put uses exception O::E by its simple name, which means nothing there"},
      {"module M { exception E } module M { interface I { op put { raises M::E } } }", ""},
  };
  ExpectFindings("name-not-visible", cases, true);
  // A compiler takes it for the other exception of that name.
  // This compiler doesn't mind, stricter ones do: what is raised is used in the interface.
  for (const char* operations : {"op e op f { raises M::E }", "op f { raises M::E } op e"}) {
    EXPECT_THAT(
        Findings(Plain("module M { exception E interface I { " + std::string(operations) + " } }")),
        ElementsAre("[use-clash] operation M::I::e clashes with exception M::E, which is "
                    "used in interface M::I"));
  }
  EXPECT_THAT(
      Findings(Plain(other + "exception E interface I { op put { raises O::E } } }")),
      ElementsAre("[name-not-visible] operation N::I::put uses exception O::E by a name that "
                  "means exception N::E there"));
  // The names of the scopes N::Bc and N::B begin alike, which is enough for a simple name.
  EXPECT_THAT(
      Findings(Plain("module N { module B { struct S { field x } } "
                     "module Bc { struct T { field y : N::B::S } } }")),
      ElementsAre("[name-not-visible] field N::Bc::T::y uses struct N::B::S by its simple name, "
                  "which means nothing there"));
}

TEST(IdlNames, OfWhatIsNotWrittenMayBeAnything) {
  // A port of a type that isn't exported, and a second home executor.
  EXPECT_THAT(Findings(Plain("package P { interface J } module M { interface I "
                             "component C { facet struct : P::J facet p : M::I } }")),
              IsEmpty());
  const std::string executor =
      R"(<nestedClassifier xmi:type="uml:Class" xmi:id="EXEC" name="Same"/>)";
  XmiFiles files;
  files.ReadModel(R"(<packagedElement xmi:type="uml:Package" xmi:id="m" name="M">
          <packagedElement xmi:type="uml:Class" xmi:id="c" name="C">)" +
                      support::Replaced(executor, "EXEC", "e1") +
                      support::Replaced(executor, "EXEC", "e2") + R"(</packagedElement>
        </packagedElement>
        <packagedElement xmi:type="uml:Artifact" xmi:id="out" name="Out">
          <manifestation client="out" supplier="m"/>
        </packagedElement>)",
                  R"(<C:CORBAModule base_Package="m"/><C:CORBAComponentImpl base_Class="c"/>
                    <C:CORBAHomeImpl base_Class="e1"/><C:CORBAHomeImpl base_Class="e2"/>
                    <C:IDLGenerator base_Artifact="out"/>)");
  EXPECT_THAT(FoundIn(files), IsEmpty());
}

TEST(IdlNames, OfWhatIsNotExportedMayBeAnything) {
  EXPECT_THAT(Findings(Plain("module M { class union { field struct } "
                             "struct S { private long field x } "
                             "package 'a/b' { struct any } }")),
              IsEmpty());
}

TEST(IdlNames, AreShownWithTheirPlace) {
  XmiFiles files;
  files.Write("model.uml", Plain("module M { struct S {\n field x } exception s }")).Read();
  const std::vector<Diagnostic> found = FoundIn(files);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].location.file, files.Path("model.uml"));
  EXPECT_EQ(found[0].location.line, files.Reader().Locate(files["M::s"]).line);
  EXPECT_EQ(found[0].element, "M::s");
  EXPECT_EQ(found[0].id, "M::s");
}

TEST(FileNames, StayInTheOutputDirectoryAndDiffer) {
  const std::string bad = ", which must not be in the name of a file";
  const std::string flat = "fileMapping=\"MODULE_FLAT\"";
  const std::string structured = "fileMapping=\"MODULE_STRUCTURED\"";
  const std::string inNames = "[idl-identifier] module ";
  const std::string noName = "' is no IDL identifier";
  const std::string body = " { const N = 1 } ";
  const std::tuple<std::string, std::string, std::vector<std::string>> cases[] = {
      {"module M" + body, "fileName=\"a.b-c\" fileSuffix=\"_v1.2\"", {}},
      {"module M" + body,
       "fileName=\"../x\"",
       {"error [unsafe-name] artifact Out: fileName '../x' holds a slash" + bad}},
      {"module M" + body,
       "fileName=\"a&#9;\" fileSuffix=\"\\x\"",
       {"error [unsafe-name] artifact Out: fileName 'a\\t' holds a control character" + bad,
        "error [unsafe-name] artifact Out: fileSuffix '\\x' holds a backslash" + bad}},
      {"module '../M'" + body,
       "",
       {"error [unsafe-name] module ../M: '../M' holds a slash" + bad,
        inNames + "../M: '../M" + noName + "; 'M' would be one"}},
      {"module '..'" + body,
       structured,
       {"error [unsafe-name] module ..: '..' holds '..'" + bad, inNames + "..: '.." + noName}},
      {"module '.'" + body,
       structured,
       {"error [unsafe-name] module .: '.' is no name for a directory",
        inNames + ".: '." + noName}},
      {"module ''" + body,
       flat,
       {"error [unsafe-name] module  has no name to call its file by",
        "[idl-identifier] module  has no name"}},
      {"module A { module B" + body + "} module A_B" + body, "", {}},
      {"module A { module B" + body + "} module A_B" + body,
       flat,
       {"error [file-clash] module A_B and module A::B have the same file 'A_B.idl'"}},
      {"module A { module B" + body + "} module A_B" + body, structured, {}},
      {"module A { module B" + body + "} module A_b" + body,
       flat,
       {"[file-clash] module A_b and module A::B have files that differ only in capitals, "
        "'A_b.idl' and 'A_B.idl'"}},
      {"module A" + body + "module A { const K = 2 }",
       structured,
       {"error [file-clash] module A and module A have the same file 'A/A.idl'"}},
      {"module Bank" + body, flat + " fileName=\"Bank\"", {}},
      {"module Bank" + body + "interface I",
       flat + " fileName=\"Bank\"",
       {"error [file-clash] module Bank and artifact Out have the same file 'Bank.idl'"}},
  };
  for (const auto& [model, settings, findings] : cases) {
    SCOPED_TRACE(model + settings);
    EXPECT_EQ(Findings(Plain(model, settings)), findings);
  }
}

/// Interfaces of which each inherits from the two before it, or from the one before and itself.
std::string InheritanceLadder(int height, bool isCircle) {
  std::string text = "module M { interface I0 { op f op g } interface I1 : M::I0 ";
  for (int i = 2; i < height; ++i) {
    const std::string number = std::to_string(i);
    text += "interface I" + number + " : M::I" + std::to_string(i - 1) + " , M::I" +
            (isCircle ? number : std::to_string(i - 2)) + " { op f" + number + " } ";
  }
  return text + "}";
}

TEST(IdlNames, OfWideInheritanceAreCheckedInTime) {
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_THAT(Findings(Plain(InheritanceLadder(3000, false))), IsEmpty());
  EXPECT_THAT(Findings(Plain(InheritanceLadder(3000, true))), IsEmpty());
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

}  // namespace
