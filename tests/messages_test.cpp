// The messages, which users and their scripts know by heart: each is raised by some faulty model,
// and leads to the element that it names. That their texts are those of docs/messages.md is tested
// with the diagnostics.
#include "agent/messages.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "agent/export_run.h"
#include "checks/file_names.h"
#include "model/model.h"
#include "tests/support/export.h"
#include "tests/support/message_log.h"
#include "tests/support/small_model.h"
#include "tests/support/xmi_files.h"

namespace {

using mdktoidl::Message;
using model::Element;
using model::Symbol;
using support::ExportBench;

/// Follows exports, and keeps what is told, found out about the names of files included.
class Listener : public mdktoidl::ExportObserver {
 public:
  bool Built(const mdktoidl::Root& root) override {
    checks::DiagnosticList found;
    const bool isSafe = checks::CheckFileNames(root, "Out", found);
    Keep(std::move(found).Sorted());
    return isSafe;
  }
  void Evaluated(const mdktoidl::Root&) override {}
  void Told(const mdktoidl::Diagnostic& diagnostic) override { Keep({diagnostic}); }

  std::vector<mdktoidl::Diagnostic> told;

 private:
  void Keep(const std::vector<mdktoidl::Diagnostic>& found) {
    told.insert(told.end(), found.begin(), found.end());
  }
};

Element& Typed(ExportBench& b, Element& m, const char* name, const char* mark,
               const support::Operand& type) {
  auto& made = b.Class(m, name, mark);
  b.Attribute(made, "base", type);
  return made;
}

Element& Case(ExportBench& b, Element& owner, const char* name, const support::Operand& type,
              std::string_view label = {}) {
  auto& made = b.Keyword(b.Attribute(owner, name, type), "case");
  auto& mark = b.Model().Apply(made, b.Model().Stereotype("case"));
  if (!label.empty()) b.Model().SetListTag(mark, Symbol("label"), {&label, 1});
  return made;
}

/// Typedefs, sequences and boxed values with all that can be wrong with them.
void BuildTypeDefinitions(ExportBench& b, Element& m) {
  auto& foreign = b.Struct(b.Package("P"), "Foreign");
  auto& unknown = b.Template("map", {"long"});
  auto& array = b.Template("array", {"long", 2});
  for (const char* mark : {"CORBATypedef", "CORBASequence", "CORBABoxedValue"}) {
    auto& scope = b.Module(m, std::string("For") + mark);
    b.Class(scope, "Empty", mark);
    b.Attribute(Typed(b, scope, "Two", mark, "long"), "other", "long");
    auto& many = Typed(b, scope, "Many", mark, "long");
    b.Range(*many.Entities(Symbol("OwnedMember"))[0], 0, "*");
    Typed(b, scope, "Typeless", mark, "");
    Typed(b, scope, "Map", mark, unknown);
    Typed(b, scope, "Elsewhere", mark, foreign);
    Typed(b, scope, "Text", mark, b.Template("string", {3}));
    Typed(b, scope, "Grid", mark, array);
  }
  b.Range(b.Attribute(b.Struct(m, "S"), "grid", array), 0, 5);
  auto& loop = b.Class(m, "Loop", "CORBATypedef");
  b.Generalize(loop, loop);
}

void BuildUnions(ExportBench& b, Element& m) {
  auto& e = b.Enum(m, "E", {"one"});
  auto& foreign = b.Struct(b.Package("P"), "Foreign");
  b.Class(m, "Empty", "CORBAUnion");
  auto& faulty = Typed(b, m, "Faulty", "CORBAUnion", e);
  b.Range(*faulty.Entities(Symbol("OwnedMember"))[0], 0, 2);
  b.Attribute(faulty, "second", e);
  b.Keyword(b.Constant(faulty, "C", "long", 1), "case");
  Case(b, faulty, "typeless", "", "two");
  Case(b, faulty, "template", b.Template("string", {3}), "one");
  auto& bound = b.Constant(b.Package("Q"), "N", "long", 2);
  b.Range(Case(b, faulty, "elsewhere", foreign, "one"), 0, bound);
  for (const auto& type :
       std::initializer_list<support::Operand>{"", b.Template("string", {3}), foreign, "double"}) {
    Case(b, Typed(b, m, "Of", "CORBAUnion", type), "a", "long", "1");
  }
  auto& simple = b.Mark(Typed(b, m, "Simple", "", e), "CORBAUnion", {{"isSimple", "true"}});
  Case(b, simple, "a", "long", "one");
}

void BuildConstantsAndBounds(ExportBench& b, Element& m) {
  auto& outside = b.Package("P");
  auto& foreign = b.Constant(outside, "FOREIGN", "long", 1);
  b.Range(b.Constant(m, "Many", "long", 1), 0, "*");
  b.Constant(m, "Typeless", "", 1);
  b.Constant(m, "Text", b.Template("string", {3}), 1);
  b.Constant(m, "Elsewhere", b.Struct(outside, "S"), 1);
  b.Mark(b.Attribute(m, "Valueless", "long"), "CORBAAttribute", {{"isConstant", "true"}});
  b.Constant(m, "OfForeign", "long", foreign);
  b.Default(b.Constant(m, "Odd", "boolean", 0), "BooleanValue", "true");
  auto& circle = b.Constant(m, "Circle", "long", 0);
  b.Default(circle, circle);

  auto& s = b.Struct(m, "S");
  b.Constant(s, "C", "long", 1);
  b.Range(b.Attribute(s, "foreign", "long"), 0, foreign);
  b.Range(b.Attribute(s, "circular", "long"), 0, circle);
  b.Range(b.Attribute(s, "zero", "long"), 0, 0);
  b.Attribute(s, "typeless", "");
  b.Attribute(s, "elsewhere", b.Struct(outside, "T"));
  b.Make(b.Attribute(s, "noLower", "long"), "OpenRange", "", "", "Multiplicity");
  auto& upper = b.Range(b.Attribute(s, "noUpper", "long"), 0, 1);
  upper.Entities(Symbol("Multiplicity"))[0]->SetEntity(Symbol("UpperBound"), nullptr);
  auto& real = b.Range(b.Attribute(s, "real", "long"), 0, 1);
  auto* range = real.Entities(Symbol("Multiplicity"))[0];
  range->Entity(Symbol("UpperBound"))->SetMetaclass(Symbol("RealValue"));
  b.Struct(m, "Empty");
  b.Module(m, "N");
}

void BuildInterfaces(ExportBench& b, Element& m) {
  auto& outside = b.Package("P");
  auto& foreign = b.Interface(outside, "Foreign");
  auto& i = b.Interface(m, "I");
  b.Generalize(i, foreign);
  auto& make = b.Mark(b.Operation(i, "make"), "CORBAFactory");
  b.Raises(make, b.Exception(outside, "E"));
  b.Parameter(make, "p", "", "DkOut");
  auto& op = b.Operation(i, "op");
  b.Returns(op, foreign);
  b.Parameter(op, "elsewhere", foreign);
  b.Range(b.Parameter(op, "many", "long"), 0, b.Constant(outside, "N", "long", 2));
  b.Returns(b.Operation(i, "typeless"), "");
  b.Returns(b.Operation(i, "text"), b.Template("string", {3}));
  b.Module(m, "N").AddEntity(Symbol("OwnedMember"), i);
}

void BuildValues(ExportBench& b, Element& m) {
  auto& outside = b.Package("P");
  auto& v = b.Mark(b.Interface(m, "V", ""), "CORBAValue", {{"isCustom", "true"}});
  b.Set(v, "isAbstract", "true");
  b.Mark(b.Generalize(v, b.Value(m, "Base")), "CORBATruncatable");
  b.Generalize(v, b.Value(outside, "Foreign"));
  b.Mark(b.Generalize(b.Event(m, "Event"), b.Class(m, "Plain", "")), "CORBASupports");
}

void BuildComponents(ExportBench& b, Element& m) {
  auto& i = b.Interface(m, "I");
  auto& j = b.Interface(m, "J");
  auto& c = b.Component(m, "C");
  b.Operation(c, "op");
  for (const char* kind : {"CORBAFacet", "CORBAReceptacle", "CORBAEventSource", "CORBAEventSink"}) {
    b.Port(c, "none", kind, {});
    b.Port(c, "two", kind, {&i, &j}, {&i, &j});
  }
  auto& d = b.Component(m, "D");
  b.Generalize(c, d);
  b.Generalize(c, b.Component(m, "F"));

  auto& home = b.Home(m, "H");
  auto& otherHome = b.Home(m, "OtherHome");
  b.Generalize(home, otherHome);
  b.Generalize(home, b.Home(m, "ThirdHome"));
  b.Generalize(home, b.Class(m, "Plain", ""));
  auto& impl = b.Class(m, "Impl", "CORBAComponentImpl");
  auto& otherImpl = b.Class(m, "OtherImpl", "CORBAComponentImpl");
  auto& executor = b.Class(impl, "Exec", "CORBAHomeImpl");
  b.Class(impl, "Second", "CORBAHomeImpl");
  b.Class(impl, "Bare", "CORBASegment");
  b.Depend(b.Class(impl, "Vain", "CORBASegment"), i);
  const auto twice = [&b](Element& client, Element& first, Element& second, const char* mark) {
    b.Mark(b.Depend(client, first), mark);
    b.Mark(b.Depend(client, second), mark);
  };
  twice(home, c, d, "CORBAManages");
  twice(home, i, j, "CORBAPrimaryKey");
  twice(impl, c, d, "CORBAImplements");
  twice(executor, home, otherHome, "CORBAImplements");
  twice(executor, impl, otherImpl, "CORBAManages");
}

/// What small models can't say.
void BuildTexts(ExportBench& b, Element& m) {
  b.Attribute(b.Value(m, "V"), "grid", b.Template("array", {"long", 2}));
  auto& i = b.Interface(m, "I");
  b.Make(i, Symbol("Syntype"), "Box", "CORBABoxedValue");
  auto& operation = b.Operation(i, "op");
  b.Set(b.Parameter(operation, "p", "long"), "Direction", "sideways");
  constexpr std::string_view contexts[] = {"", "\"user\"", "1 2"};
  auto& mark = b.Model().Apply(b.Operation(i, "with"), b.Model().Stereotype("CORBAOperation"));
  b.Model().SetListTag(mark, Symbol("context"), contexts);
  b.Attribute(b.Struct(m, "S"), "number", b.Template("fixed", {40, 2}));
  b.Default(b.Constant(m, "C", "long", 1), Symbol("ListExpression"), "");
  auto& impl = b.Mark(b.Class(m, "Impl", ""), "CORBAComponentImpl", {{"category", "lazy"}});
  auto& executor = b.Class(impl, "Exec", "CORBAHomeImpl");
  auto& c = b.Component(m, "C");
  b.Mark(b.Depend(executor, impl), "CORBAManages");
  auto& home = b.Home(m, "H");
  b.Mark(b.Depend(home, c), "CORBAManages");
  b.Mark(b.Depend(executor, home), "CORBAImplements");
  b.Mark(b.Depend(impl, c), "CORBAImplements");
  auto& foreign = b.Port(b.Component(m, "D"), "f", "CORBAFacet", {&i});
  b.Mark(b.Depend(b.Class(impl, "Seg", "CORBASegment"), foreign), "CORBAIsProvidedBy");
}

/// Names of every kind of fault, on top of each other.
void BuildNames(ExportBench& b, Element& m) {
  b.Struct(m, "");
  b.Struct(m, "two words");
  b.Struct(m, "struct");
  b.Struct(m, "UNION");
  b.Struct(m, "Same");
  auto& same = b.Struct(m, "same");
  b.Attribute(same, "SAME", "long");
  b.Enum(m, "E", {"Same"});
  auto& base = b.Interface(m, "Base");
  b.Operation(base, "common");
  b.Attribute(base, "hidden", "long");
  auto& other = b.Interface(m, "Other");
  b.Operation(other, "Common");
  auto& heir = b.Interface(m, "Heir");
  for (Element* general : {&base, &other}) b.Generalize(heir, *general);
  b.Attribute(heir, "HIDDEN", "long");
  auto& user = b.Interface(m, "User");
  b.Generalize(user, base);
  b.Attribute(user, "x", b.Struct(m, "Hidden"));
  b.Attribute(b.Struct(m, "Holder"), "same", same);
  auto& far = b.Exception(b.Module(b.Module(m, "N"), "Inner"), "Far");
  b.Raises(b.Operation(other, "far"), far);
}

/// With a file for each module.
void BuildFileNames(ExportBench& b, Element& m) {
  b.Module(m, "a/b");
  b.Module(m, "");
  b.Module(m, ".");
  b.Module(b.Module(m, "A"), "B");
  b.Module(m, "A_B");
  b.Module(m, "a_b");
}

constexpr void (*models[])(ExportBench&, Element&) = {
    BuildTypeDefinitions, BuildUnions, BuildConstantsAndBounds,
    BuildInterfaces,      BuildValues, BuildComponents,
    BuildTexts,           BuildNames,  BuildFileNames};

/// What stands in the module M; it is exported both ways.
constexpr std::string_view smallModels[] = {
    "struct Own { field own : M::Own }",
    "module N { interface C : M::O::F { } interface D { attr e : M::O::E } } "
    "module O { enum E { literal e } interface F { } interface G : M::N::D { } }",
    "struct S { private x } enum E { } struct T { field a : native field _b }",
    "const N : double = 3 struct S { field a [ N ] field b [ 4294967296 ] }",
    "const A = 'a' const B : any = 1 const C = 1 const D : boolean = M::C const F : double = 3",
    "union U { switch k : octet case a = 1 } union V { switch k case a = 1 case b = 1 case c = x }",
    "union U { switch k default a default b } union V { switch k : wchar case a = b }",
    "union U { switch k : boolean case a = true case b = false default c }",
    "union U { switch k : char case a = ä }",
    "local L { } abstraction A : M::I { } interface I : M::L { attr a : M::L op f { raises M::L } "
    "}",
    "abstract A { state x factory make } value B { } abstract C : M::B { } value D : M::C , M::B { "
    "}",
    "custom A { } value B : M::A { } value C : M::B , M::A { } value D : M::B , M::B truncatable { "
    "}",
    "interface I { } interface J { } value V : M::I , M::J { } value W : M::V { } boxed X : M::V",
    "interface I { } interface J { } value V : M::I { } value W : M::V , M::J { } abstract Y { }"
    " value X : M::Y , M::V { }",
    "interface I { attr _x } value V { finder find boxed B : long } struct S { field any }",
    "struct S -- 'a\\' { field x }",
    "struct T { field x } module N { struct T { field y } struct S { field z : M::T } }",
    "module A { struct S { field t : M::B::S } struct T { field x } } "
    "module B { struct S { field t : M::A::T } }",
    "module A { interface I { attr j : M::B::J } } module B { interface J { attr i : M::A::I } }",
    "interface I : M::J { } interface J { attr i : M::I attr all : long [*] }",
    "sequence Longs : long interface I { attr a [*] attr b : string [*] } struct S { field x [*] }",
};

/// Each of them takes a model, or a file system, of its own; other tests raise them.
const std::set<Message> raisedElsewhere = {Message::settingMissing,
                                           Message::moduleTooDeep,
                                           Message::nameUnresolved,
                                           Message::templateParameterWrong,
                                           Message::templateParameterCircular,
                                           Message::hostFailed,
                                           Message::nothingToExport,
                                           Message::fileNotOpened,
                                           Message::nameDeclaredTwice,
                                           Message::namesInheritedTooWidely};

void AddRaisedBySmallModels(const std::string& settings, std::set<Message>& raised) {
  for (const std::string_view members : smallModels) {
    const ExportBench bench;
    support::XmiFiles files;
    const std::string text = "module M { " + std::string(members) + " }";
    files.Write("model.uml", support::SmallModel(text, "targetDir=\"out\" " + settings)).Read();
    Listener listener;
    const support::MessageLog log;
    mdktoidl::RunExport(&files["out"], &listener);
    for (const mdktoidl::Diagnostic& each : listener.told) {
      EXPECT_NE(each.element, nullptr) << TextOf(each);
      raised.insert(each.message);
    }
  }
}

TEST(Messages, AreEachRaisedByAModelAndLeadToAnElement) {
  std::set<Message> raised = raisedElsewhere;
  for (const auto build : models) {
    // A name of the main file that is not safe refuses the export, and shows the other faults anew.
    using Settings = std::tuple<const char*, const char*, const char*>;
    for (const auto& [mapping, fileName, isVerbatim] :
         {Settings("MODULE_FLAT", "x", "true"), Settings("MODULE_STRUCTURED", "../x", "true"),
          Settings("ONE_FILE", "x", "false")}) {
      ExportBench bench;
      auto& module = bench.Module("M");
      build(bench, module);
      Element& artifact = bench.Artifact(
          {&module},
          {{"fileMapping", mapping}, {"fileName", fileName}, {"isVerbatim", isVerbatim}});
      Listener listener;
      const support::MessageLog log;
      mdktoidl::RunExport(&artifact, &listener);
      for (const mdktoidl::Diagnostic& each : listener.told) {
        raised.insert(each.message);
        const std::string text = TextOf(each);
        ASSERT_NE(each.element, nullptr) << text;
        const std::string name = each.element->GetValue("Name", 0);
        EXPECT_NE(text.find(name), std::string::npos) << text;
        EXPECT_TRUE(each.element != &artifact || RuleOf(each.message) == "unsafe-name") << text;
      }
    }
  }
  for (const char* settings :
       {"isVerbatim=\"true\"", "isVerbatim=\"false\"", "fileMapping=\"MODULE_FLAT\""}) {
    AddRaisedBySmallModels(settings, raised);
  }
  for (std::size_t index = 0; index < static_cast<std::size_t>(Message::count); ++index) {
    const auto message = static_cast<Message>(index);
    EXPECT_TRUE(raised.contains(message)) << Text(message);
  }
}

}  // namespace
