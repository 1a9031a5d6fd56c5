// The vocabulary of messages, which users and their scripts know by heart: every text with its
// severity, held against what the agent can say and against what it says about faulty models.
#include "agent/messages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <map>
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

/// Each text behind its severity; "{}" stands for a name.
constexpr std::string_view vocabulary = R"(
Warning - Definition{} cannot be a forward declaration
Error - a supertype of {} type{} is not marked as a CORBA type
Warning - a custom {} type {} cannot have a truncated generalization
Error - a {} type{} can only support interfaces
Error - Typedef {} has a type that could not be identified
Error - Typedef {} has a type that could not be identified (template)
Error - typedef {} cannot have a multiplicity on its type specification
Error - Typedef {} has a type that is not marked as a CORBA type or not included in the generation
Error - sequence {} cannot have a multiplicity on its base type
Error - sequence {} has a type that could not be identified
Warning - sequence {} has an anonymous template type; consider using a typedef instead
Error - sequence {} has a type that is not marked as a CORBA type or not included in the generation
Error - Segment {} provides no artifact
Error - Segment {} provides no artifact (no dependencies have been defined)
Warning - Facet {} lacks required type
Warning - Event source {} cannot realize types
Error - Port {} has too many requires relationships
Warning - Facet {} lacks realized type
Warning - Event sink {} cannot require types
Error - Port {} has too many realizes relationships
Warning - Facet {} lacks required interface
Warning - Receptacle {} cannot realize interfaces
Warning - Facet {} lacks realized interface
Warning - Facet {} cannot require interfaces
Error - attribute {}has a multiplicity constant that could not be identified
Error - parameter {} has a type that could not be identified
Warning - parameter {} has an anonymous template type; consider using a typedef instead
Error - parameter {} has a type that is not marked as a CORBA type or not included in the generation
Error - operation {} has a value-returning parameter (inout, out, or return kind)
Error - a supertype of interface{} is not marked as a CORBA type
Error - constant {} cannot have a multiplicity
Error - constant {} has a type that could not be identified
Error - constant {} cannot have a template type
Error - constant {} has a type that is not marked as a CORBA type or not included in the generation
Error - constant {} has no value
Error - constant {} has a value that is not marked as a CORBA type or not included in the generation
Error - constant {} has a value that is not supported
Error - union case {}has a multiplicity constant that could not be identified
Error - union case {} has a type that could not be identified
Warning - union case {} has an anonymous template type; consider using a typedef instead
Error - union case {} has a type that is not marked as a CORBA type or not included in the generation
Error - boxed value {} cannot have a multiplicity on its type specification
Error - boxed value {} has a type that could not be identified
Error - boxed value {} has a type that is not marked as a CORBA type or not included in the generation
Error - attribute {} has a multiplicity constant that could not be identified
Error - attribute {} has a type that could not be identified
Warning - attribute {} has an anonymous template type; consider using a typedef instead
Error - attribute {} has a type that is not marked as a CORBA type or not included in the generation
Error - discriminator of union {} cannot have a multiplicity
Error - union {} has a discriminator that could not be identified
Error - union {} cannot have a discriminator that is a template type
Error - union {} has a discriminator that is not marked as a CORBA type or not included in the generation
Error - Home implementation {} implements more than one home interface
Error - Home implementation {} manages more than one component implementation
Warning - A {} type {} cannot be both abstract and custom
Error - operation {} has a return type that could not be identified
Warning - operation {} cannot be a factory or finder operation
Error - operation {} is oneway and cannot raise exceptions
Warning - operation {} has an anonymous return template type; consider using a typedef instead
Error - operation {} raises an undefined exception {}
Error - operation {} has a return type that is not marked as a CORBA type or not included in the generation
Error - Home interface {} inherits more than one home interface
Warning - Home interface {} has a supertype (generalization) that is not marked with a proper CORBA stereotype
Error - home interface {} manages more than one component
Error - home interface {} has more than one primary key
Error - Component implementation {} implements more than one component
Warning - A segmented component implementation ({}) can only be a process or entity
Error - Component {} inherits more than one component
Error - union {} switch ({}has no discriminator
Warning - union case {} has a case label that is ignored due to isSimple being set
Error - union case {} has no case label
Warning - union case {} has no case label
Warning - union case {} has a case label {} that is not present in the union's discriminator type
Warning - typedef {} should only contain one attribute indicating the base type
Error - typedef {} should contain either one attribute or a single generalization indicating the base type
Error - sequence {} should contain one attribute indicating the base type
Warning - sequence {} should only contain one attribute indicating the base type
Warning - Component implementation {} has more than one home executor
Error - Component implementation {} has no valid home executor
Error - boxed value {} should contain one attribute indicating the base type
Warning - boxed value {} should only contain one attribute indicating the base type
Warning - Component {} cannot have operations
Warning - struct {} has no members
Warning - Constant not allowed in struct {}; generating non-constant member instead
Error - union {} should contain at least one case
Error - union {} must have one attribute specifying its discriminator
Warning - Constant not allowed in union {}; generating non-constant member instead
Error - union {} has too many attributes specified as discriminator
Warning - module {} is empty
Error - {}: Failed to obtain lower bound of multiplicity
Error - {}: Failed to obtain upper bound of multiplicity
Error - {}: Failed to correctly interpret multiplicity
Error - {}: Only integer literals and constants are allowed as multiplicitiy boundaries
Error - {}: Circular references between constant values are not allowed
)";

/// Texts for what would otherwise become wrong IDL without a word.
constexpr std::string_view additions = R"(
Error - constant {}: Circular references between constant values are not allowed
Error - {} cannot have a multiplicity on an array type
Error - boxed value {} cannot have an array type; box a typedef of it instead
Error - sequence {} cannot have an array as its base type; use a typedef of it instead
Error - union {} has a discriminator that is no integer, char, boolean or enum
Warning - home interface {} manages no component that is included in the generation
Warning - {} has a member that is declared elsewhere and left out here: {}
)";

/// Texts that can't be raised, each with the reason.
const std::map<std::string, std::string_view> unreachable = {
    {"Error - union {} switch ({}has no discriminator",
     "a union without a discriminator is an error already, and is not written"},
    {"Warning - union case {} has no case label",
     "the error of the same text is raised for it, and keeps the union from being written"},
};

using Lines = std::set<std::string>;

Lines LinesOf(const std::string& text) {
  Lines lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty()) lines.insert(line);
  }
  return lines;
}

Lines Expected() { return LinesOf(std::string(vocabulary) + std::string(additions)); }

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

constexpr void (*models[])(ExportBench&, Element&) = {
    BuildTypeDefinitions, BuildUnions, BuildConstantsAndBounds,
    BuildInterfaces,      BuildValues, BuildComponents};

TEST(Messages, AreTheVocabulary) {
  Lines said;
  for (std::size_t index = 0; index < static_cast<std::size_t>(Message::count); ++index) {
    const auto message = static_cast<Message>(index);
    const bool isError = mdktoidl::SeverityOf(message) == mdktoidl::Severity::error;
    said.insert((isError ? "Error - " : "Warning - ") + std::string(Text(message)));
  }
  Lines expected = Expected();
  for (const auto& [text, reason] : unreachable) expected.erase(text);
  EXPECT_EQ(said, expected);
}

TEST(Messages, AreEachRaisedByAModel) {
  Lines raised;
  for (const auto build : models) {
    ExportBench bench;
    auto& module = bench.Module("M");
    build(bench, module);
    raised.merge(LinesOf(bench.Export({&module}).Diagnostics()));
  }
  for (const std::string& text : Expected()) {
    EXPECT_EQ(IsRaised(raised, text), !unreachable.contains(text)) << text;
  }
}

TEST(Messages, LeadToTheElementsThatTheyName) {
  for (const auto build : models) {
    ExportBench bench;
    auto& module = bench.Module("M");
    build(bench, module);
    Element& artifact = bench.Artifact({&module});
    command::AgentMessages messages;
    for (const std::string& piece : bench.Run(&artifact).pieces) messages.Take(piece);
    command::ElementFinder finder(artifact);
    for (const auto& message : messages.All()) {
      const command::MessageMeaning meaning = command::MeaningOf(message.text);
      const Element& found = finder.Find(meaning);
      EXPECT_NE(&found, &artifact) << message.text;
      EXPECT_TRUE(meaning.name.ends_with(found.Text(Symbol("Name")))) << message.text;
    }
  }
}

}  // namespace
