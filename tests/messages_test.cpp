// The messages, which users and their scripts know by heart: each is raised by some faulty model,
// and leads to the element that it names. That their texts are those of docs/messages.md is tested
// with the diagnostics.
#include "agent/messages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

#include "command/agent_messages.h"
#include "command/element_finder.h"
#include "command/message_patterns.h"
#include "model/model.h"
#include "tests/support/export.h"

namespace {

using mdktoidl::Message;
using model::Element;
using model::Symbol;
using support::ExportBench;

using Lines = std::set<std::string>;

Lines LinesOf(const std::string& text) {
  Lines lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty()) lines.insert(line);
  }
  return lines;
}

bool IsRaised(const Lines& raised, const std::string& text) {
  static const std::regex special(R"([.()?])");
  // Messages about multiplicities name the element together with its construct word.
  const char* name = text.starts_with("Error - {}") ? "[\\w: ]+" : "[\\w:]+";
  const std::regex pattern(
      support::Replaced(std::regex_replace(text, special, R"(\$&)"), "{}", name));
  return std::any_of(raised.begin(), raised.end(), [&pattern](const std::string& line) {
    return std::regex_match(line, pattern);
  });
}

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

void ExpectLeadToElements(const Element& artifact, const support::Exported& run) {
  command::AgentMessages messages;
  for (const std::string& piece : run.pieces) messages.Take(piece);
  command::ElementFinder finder(artifact);
  for (const auto& message : messages.All()) {
    const command::MessageMeaning meaning = command::MeaningOf(message.text);
    const Element& found = finder.Find(meaning);
    EXPECT_NE(&found, &artifact) << message.text;
    EXPECT_TRUE(meaning.name.ends_with(found.Text(Symbol("Name")))) << message.text;
  }
}

constexpr void (*models[])(ExportBench&, Element&) = {
    BuildTypeDefinitions, BuildUnions, BuildConstantsAndBounds,
    BuildInterfaces,      BuildValues, BuildComponents};

TEST(Messages, AreEachRaisedByAModel) {
  Lines raised;
  for (const auto build : models) {
    ExportBench bench;
    auto& module = bench.Module("M");
    build(bench, module);
    Element& artifact = bench.Artifact({&module});
    const support::Exported run = bench.Run(&artifact);
    raised.merge(LinesOf(run.Diagnostics()));
    ExpectLeadToElements(artifact, run);
  }
  for (std::size_t index = 0; index < static_cast<std::size_t>(Message::count); ++index) {
    const auto message = static_cast<Message>(index);
    const bool isError = mdktoidl::SeverityOf(message) == mdktoidl::Severity::error;
    const std::string text = (isError ? "Error - " : "Warning - ") + std::string(Text(message));
    EXPECT_TRUE(IsRaised(raised, text)) << text;
  }
}

}  // namespace
