// From what the agent and the reader say to the spot in the model: each text has its rule, and the
// element that it names is found.
#include "agent/diagnostics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "agent/messages.h"
#include "command/agent_messages.h"
#include "command/element_finder.h"
#include "command/message_patterns.h"
#include "command/remarks.h"
#include "command/rules.h"
#include "tests/support/export.h"
#include "tests/support/file_tree.h"
#include "tests/support/xmi_files.h"

namespace {

using command::AgentMessages;
using command::Diagnostic;
using command::MeaningOf;
using command::Named;
using mdktoidl::Message;
using support::ExportBench;
using testing::ElementsAre;

constexpr auto messageCount = static_cast<std::size_t>(Message::count);

/// Rules that several messages share, because they say the same of different constructs.
const std::set<std::string_view> sharedRules = {
    "base-type-ambiguous", "base-type-array",   "base-type-missing",   "base-type-multiplicity",
    "bound-missing",       "bound-unknown",     "constant-member",     "port-type-ambiguous",
    "port-type-forbidden", "port-type-missing", "segment-no-artifact", "supertype-not-exported",
    "type-anonymous",      "type-not-exported", "type-unknown"};

/// Messages about value and event types, with the word that comes before the name.
const std::set<Message> valueMessages = {
    Message::valueIsAbstractAndCustom, Message::valueIsCustomAndTruncated,
    Message::valueSupertypeNotExported, Message::valueSupportsOther};

/// The message as the agent composes it about an element.
std::string Composed(Message message, const std::string& name) {
  if (valueMessages.contains(message)) return mdktoidl::Compose(message, {"event", name});
  const std::string_view text = Text(message);
  if (text.find("{}") != text.rfind("{}")) return mdktoidl::Compose(message, {name, "another"});
  if (text.starts_with("{}")) return mdktoidl::Compose(message, {"union case " + name});
  return mdktoidl::Compose(message, {name});
}

TEST(MessagePatterns, GiveEveryMessageItsRule) {
  std::map<std::string_view, int> uses;
  for (std::size_t index = 0; index < messageCount; ++index) {
    const std::string_view rule = MeaningOf(Composed(static_cast<Message>(index), "M::S")).rule;
    EXPECT_NE(rule, "unclassified") << Text(static_cast<Message>(index));
    EXPECT_NE(command::FindRule(rule), nullptr) << rule;
    ++uses[rule];
  }
  for (const auto& [rule, count] : uses) {
    EXPECT_EQ(count > 1, sharedRules.contains(rule)) << rule << " has " << count << " messages";
  }
}

TEST(MessagePatterns, CutOutTheName) {
  for (const std::string name :
       {"M::S::field", "x", "", "M::a b::c d", "M::has no members", "union case",
        " M:: ", "M::{}::f", "M::ends with::", "M::line\nend", "\xC3\xA9t\xC3\xA9::\xFF",
        "M::is empty cannot have a multiplicity", "M::x: Failed to obtain", "type", "(M)"}) {
    for (std::size_t index = 0; index < messageCount; ++index) {
      const auto message = static_cast<Message>(index);
      const std::string text = Composed(message, name);
      SCOPED_TRACE(text);
      // Only a blank tells a parameter's bound from an attribute's.
      if (message == Message::parameterBoundUnknown && name.ends_with(' ')) continue;
      EXPECT_EQ(MeaningOf(text).name, name);
    }
  }
}

TEST(MessagePatterns, LeaveWhatIsNoMessage) {
  for (const char* text : {"", "struct", "struct  has no member", "moduleM is empty", "Weather"}) {
    EXPECT_EQ(MeaningOf(text).rule, "unclassified") << text;
    EXPECT_EQ(MeaningOf(text).named, Named::kNothing) << text;
  }
}

TEST(Rules, AreEachThereOnceAndNamedAlike) {
  std::set<std::string_view> ids;
  for (const command::Rule& rule : command::Rules()) {
    EXPECT_TRUE(ids.insert(rule.id).second) << rule.id;
    EXPECT_THAT(std::string(rule.id), testing::MatchesRegex("[a-z]+(-[a-z]+)*"));
    EXPECT_FALSE(rule.summary.empty() || rule.summary.ends_with('.')) << rule.id;
  }
}

TEST(ElementFinder, FindsWhatTheAgentNames) {
  ExportBench b;
  auto& outer = b.Package("outer");
  auto& m = b.Module(outer, "M");  // in a package that is no module
  auto& s = b.Struct(m, "S");
  b.Attribute(s, "a b", "");
  b.Attribute(s, "x::y", "");
  auto& i = b.Interface(m, "I");
  auto& op = b.Operation(i, "op");
  b.Parameter(op, "p", "");
  b.Returns(op, "");
  b.Attribute(i, "op", "");
  auto& top = b.Interface(outer, "Top");
  b.Attribute(top, "t", "");
  b.Range(b.Parameter(b.Operation(top, "many"), "q", "long"), 0, b.Constant(outer, "N", "long", 1));
  auto& c = b.Component(m, "C");
  b.Port(c, "both", "CORBAFacet", {&i, &top});
  b.Port(b.Component(m, "A"), "both", "CORBAFacet", {&i});
  model::Element& artifact = b.Artifact({&m, &top});
  AgentMessages messages;
  for (const std::string& piece : b.Run(&artifact).pieces) messages.Take(piece);
  command::ElementFinder finder(artifact);
  std::vector<std::string> found;  // "RULE METACLASS NAME" for each message
  for (const AgentMessages::Message& message : messages.All()) {
    const command::MessageMeaning meaning = MeaningOf(message.text);
    const model::Element& element = finder.Find(meaning);
    found.push_back(std::string(meaning.rule) + " " + std::string(element.Metaclass().Text()) +
                    " " + std::string(element.Text(model::Symbol("Name"))));
  }
  EXPECT_THAT(found, ElementsAre("type-anonymous Parameter q", "port-type-ambiguous Port both",
                                 "type-unknown Attribute op", "type-unknown Attribute a b",
                                 "type-unknown Attribute x::y", "bound-unknown Parameter q",
                                 "type-unknown Attribute t", "type-unknown Operation op",
                                 "type-unknown Parameter ", "type-unknown Parameter p"));
}

TEST(ElementFinder, FallsBackToTheInnermostScopeAndToTheArtifact) {
  ExportBench b;
  auto& m = b.Module("M");
  b.Class(m, "Plain", "");
  auto& plain = b.Struct(m, "Plain");
  auto& s = b.Struct(m, "S");
  auto& field = b.Attribute(s, "f", "long");
  const model::Element& artifact = b.Artifact({&m, &b.Struct(m, "M")});
  command::ElementFinder finder(artifact);
  const std::pair<std::string, const model::Element*> cases[] = {
      {"M::S::f", &field}, {"M::S::f::g", &field}, {"M::S::g", &s},     {"M::S::", &s},
      {"M::S", &s},        {"M::T::S", &m},        {"M", &m},           {"N::S", &artifact},
      {"", &artifact},     {"::", &artifact},      {"m", &artifact},    {"M::::::::::::S", &m},
      {"S", &artifact},    {"M::S::::f", &s},      {"M::Plain", &plain}};
  for (const auto& [name, element] : cases) {
    EXPECT_EQ(&finder.Find({"type-unknown", Named::kAny, name}), element) << name;
  }
  EXPECT_EQ(&finder.Find({"port-type-ambiguous", Named::kPort, "f"}), &artifact);
  EXPECT_EQ(&finder.Find({"setting-missing"}), &artifact);
}

// A search that goes through all members for each message would take minutes here.
TEST(ElementFinder, StaysLinearInManyMessagesOnOneScope) {
  constexpr int count = 100'000;
  ExportBench b;
  auto& m = b.Module("M");
  auto& s = b.Struct(m, "S");
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) {
    names.push_back("f" + std::to_string(i));
    b.Make(s, "Attribute", names.back());
  }
  auto& twins = b.Struct(m, "Twins");
  for (int i = 0; i < count; ++i) b.Make(twins, "Attribute", "twin");
  command::ElementFinder finder(b.Artifact({&m}));
  const auto fields = s.Entities(model::Symbol("OwnedMember"));
  for (std::size_t i = 0; i < count; ++i) {
    ASSERT_EQ(&finder.Find({"type-unknown", Named::kAttribute, "M::S::" + names[i]}), fields[i]);
    ASSERT_EQ(&finder.Find({"type-unknown", Named::kAttribute, "M::Twins::twin"}),
              twins.Entities(model::Symbol("OwnedMember"))[0]);
  }
}

TEST(AgentMessages, TakeEachErrorWarningAndFailure) {
  const std::pair<std::vector<std::string>, std::vector<std::string>> cases[] = {
      {{"\nIDL exporter started...\n", "Warning - ", "struct S has no members", "\n", "Error - ",
        "Error - ", "\n", "There were 1 errors and 1 warnings", "IDL exporter finished.\n"},
       {"warning: struct S has no members", "error: Error - "}},
      {{"Error - ", "IDL exporter failed to open file x", "\n", "3", "3"},
       {"error: IDL exporter failed to open file x"}},
      {{"IDL exporter failed to open file a/b.idl\n", "IDL exporter finished.\n"},
       {"error: IDL exporter failed to open file a/b.idl"}},
      {{"IDL exporter failed to find root element to export.\n", "\nIDL exporter aborted.\n"},
       {"error: IDL exporter failed to find root element to export"}},
      {{"Internal error in IDL exporter agent: ", "reason", "\n", "\nIDL exporter aborted.\n"},
       {"abort: reason"}},
      {{"API Error in IDL exporter agent: ", "", "\n", "\nIDL exporter aborted.\n"}, {"abort: "}},
  };
  for (const auto& [pieces, expected] : cases) {
    AgentMessages messages;
    for (const std::string& piece : pieces) messages.Take(piece);
    std::vector<std::string> said;
    for (const AgentMessages::Message& message : messages.All()) {
      const bool isError = message.severity == command::Severity::kError;
      said.push_back((message.endsExport ? "abort: "
                      : isError          ? "error: "
                                         : "warning: ") +
                     message.text);
    }
    EXPECT_EQ(said, expected);
  }
}

TEST(Diagnostics, TellOfTheReadersRemarks) {
  support::XmiFiles files;
  files.Write("page.uml", "<project/>");
  files.Write("part.uml", "<uml:Package " + std::string(support::kNamespaces) + " xmi:id='f'/>");
  files.ReadModel(R"(
      <packagedElement xmi:type="uml:Class" xmi:id="a" name="A" visibility="odd">
        <ownedAttribute xmi:id="a" name="x" type="nowhere"/>
        <ownedAttribute xmi:id="w"><type href="http://far.away/t.uml#t"/></ownedAttribute>
        <ownedAttribute xmi:id="y"><type href="missing.uml#t"/></ownedAttribute>
        <ownedAttribute xmi:id="z" type="a">
          <upperValue xmi:type="uml:LiteralString" value="1 + 2"/>
        </ownedAttribute>
      </packagedElement>
      <packagedElement xmi:type="uml:Class" xmi:id="t" name="T"><templateBinding>
        <signature href="CORBA.library.uml#sequence_signature"/>
        <parameterSubstitution actual="t"/>
        <parameterSubstitution>
          <ownedActual xmi:type="uml:LiteralString" value="1 + 2"/>
        </parameterSubstitution>
      </templateBinding></packagedElement>
      <packagedElement xmi:type="uml:Package" href="part.uml#f"/>
      <packagedElement xmi:type="uml:Package" href="part.uml#f"/>
      <packagedElement xmi:type="uml:Package" href="page.uml#f"/>
      <packagedElement xmi:type="uml:Dependency" xmi:id="d" client="a"/>)",
                  R"(<C:CORBAStruct base_Class="a"/><C:CORBAStruct base_Class="a"/>
                     <C:CORBAStruct base_Class="gone"/>)");
  std::set<std::string> rules;
  for (const Diagnostic& each : command::DiagnosticsOf(files.Reader())) {
    EXPECT_EQ(each.severity, command::Severity::kWarning);
    EXPECT_NE(each.location.line, 0U) << each.text;
    EXPECT_NE(command::FindRule(each.rule), nullptr) << each.rule;
    rules.insert(each.rule);
  }
  EXPECT_THAT(
      rules, ElementsAre("bound-unreadable", "dangling-reference", "dependency-incomplete",
                         "duplicate-id", "file-not-a-model", "file-unreadable", "misplaced-element",
                         "reference-not-local", "stereotype-dangling", "stereotype-twice",
                         "template-parameter-unreadable", "template-recursive", "value-unknown"));
}

// The document has tables: | severity | `message` | `rule` | meaning and remedy |
TEST(MessagesDocument, ExplainsEveryMessageAndRule) {
  const std::string document = support::ReadFile(IDLEXPORT_SOURCE_DIR "/docs/messages.md");
  const std::regex row("\n(\\| (?:error|warning) \\| `[^`]*` \\| `[^`]*`) \\| [^|]+ \\|(?=\n)");
  std::set<std::string> rows;
  for (std::sregex_iterator each(document.begin(), document.end(), row), end; each != end; ++each) {
    rows.insert(each->str(1));
  }
  for (std::size_t index = 0; index < messageCount; ++index) {
    const auto message = static_cast<Message>(index);
    const bool isError = SeverityOf(message) == mdktoidl::Severity::error;
    const std::string expected = (isError ? "| error | `" : "| warning | `") +
                                 std::string(Text(message)) + "` | `" +
                                 std::string(MeaningOf(Composed(message, "S")).rule) + "`";
    EXPECT_TRUE(rows.contains(expected)) << expected;
  }
  for (const command::Rule& rule : command::Rules()) {
    EXPECT_THAT(document, testing::HasSubstr("`" + std::string(rule.id) + "`"));
  }
}

}  // namespace
