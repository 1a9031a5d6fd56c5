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
#include "command/agent_run.h"
#include "diagnostics/diagnostic.h"
#include "diagnostics/rules.h"
#include "tests/support/file_tree.h"
#include "tests/support/xmi_files.h"

namespace {

using diagnostics::Diagnostic;
using mdktoidl::Message;
using testing::ElementsAre;

constexpr auto messageCount = static_cast<std::size_t>(Message::count);

TEST(Rules, AreEachThereOnceAndNamedAlike) {
  std::set<std::string_view> ids;
  for (const diagnostics::Rule& rule : diagnostics::Rules()) {
    EXPECT_TRUE(ids.insert(rule.id).second) << rule.id;
    EXPECT_THAT(std::string(rule.id), testing::MatchesRegex("[a-z]+(-[a-z]+)*"));
    EXPECT_FALSE(rule.summary.empty() || rule.summary.ends_with('.')) << rule.id;
  }
}

TEST(Rules, AreThereForEveryMessage) {
  for (std::size_t index = 0; index < messageCount; ++index) {
    const std::string_view rule = RuleOf(static_cast<Message>(index));
    EXPECT_NE(diagnostics::FindRule(rule), nullptr) << rule;
  }
}

/// "RULE ID LINE" for all that an export of the model says.
std::vector<std::string> ToldOf(support::XmiFiles& files) {
  const support::ScratchDirectory scratch;
  std::vector<std::string> told;
  const command::AgentRun run(files.Reader(), files["out"], scratch.Path(), nullptr);
  for (const Diagnostic& each : run.Told()) {
    told.push_back(each.rule + " " + each.id + " " + std::to_string(each.location.line));
  }
  return told;
}

TEST(Diagnostics, LeadToTheElementsThatTheyAreAbout) {
  support::XmiFiles files;
  files.ReadModel(R"(
<packagedElement xmi:type="uml:Package" xmi:id="m" name="M">
<packagedElement xmi:type="uml:Class" xmi:id="s" name="S">
<ownedAttribute xmi:id="x1" name="x" type="s"/>
<ownedAttribute xmi:id="x2" name="x"/>
<ownedAttribute xmi:id="x3" name="x"/>
</packagedElement>
<packagedElement xmi:type="uml:Class" xmi:id="i" name="I">
<ownedOperation xmi:id="o" name="o">
<ownedParameter xmi:id="p" name="p"/>
</ownedOperation>
</packagedElement>
</packagedElement>
<packagedElement xmi:type="uml:Artifact" xmi:id="out" name="Out">
<manifestation client="out" supplier="m"/>
</packagedElement>)",
                  R"(<C:CORBAModule base_Package="m"/><C:CORBAStruct base_Class="s"/>
                     <C:CORBAInterface base_Class="i"/>
                     <C:CORBAOperation base_Operation="o" overrideIsDefaultAsync="true"/>
                     <C:IDLGenerator base_Artifact="out"/>)");
  const std::size_t first = files.Reader().Locate(files["m"]).line;
  const auto line = [first](std::size_t offset) { return " " + std::to_string(first + offset); };
  EXPECT_THAT(ToldOf(files), ElementsAre("order-circle s" + line(1), "type-unknown x2" + line(3),
                                         "type-unknown x3" + line(4), "name-clash x2" + line(3),
                                         "name-clash x3" + line(4), "type-unknown p" + line(8)));
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
  for (const Diagnostic& each : diagnostics::DiagnosticsOf(files.Reader())) {
    EXPECT_EQ(each.severity, diagnostics::Severity::kWarning);
    EXPECT_NE(each.location.line, 0U) << each.text;
    EXPECT_NE(diagnostics::FindRule(each.rule), nullptr) << each.rule;
    rules.insert(each.rule);
  }
  EXPECT_THAT(
      rules, ElementsAre("bound-unreadable", "dangling-reference", "dependency-incomplete",
                         "duplicate-id", "file-not-a-model", "file-unreadable", "misplaced-element",
                         "reference-not-local", "stereotype-dangling", "stereotype-twice",
                         "template-parameter-unreadable", "template-recursive", "value-unknown"));
}

/// That without repairs, where what is repaired is silent.
std::string SeverityShown(Message message) {
  mdktoidl::SetVerbatim(SeverityOf(message) == mdktoidl::Severity::silent);
  const mdktoidl::Severity severity = SeverityOf(message);
  mdktoidl::SetVerbatim(false);
  if (severity == mdktoidl::Severity::note) return "note";
  return severity < mdktoidl::Severity::error ? "warning" : "error";
}

// The document has tables: | severity | `message` | `rule` | meaning and remedy |
TEST(MessagesDocument, ExplainsEveryMessageAndRule) {
  const std::string document = support::ReadFile(IDLEXPORT_SOURCE_DIR "/docs/messages.md");
  const std::regex row(
      "\n(\\| (?:error|warning|note) \\| `[^`]*` \\| `[^`]*`) \\| [^|]+ \\|(?=\n)");
  std::set<std::string> rows;
  for (std::sregex_iterator each(document.begin(), document.end(), row), end; each != end; ++each) {
    rows.insert(each->str(1));
  }
  for (std::size_t index = 0; index < messageCount; ++index) {
    const auto message = static_cast<Message>(index);
    const std::string expected = "| " + SeverityShown(message) + " | `" +
                                 std::string(Text(message)) + "` | `" +
                                 std::string(RuleOf(message)) + "`";
    EXPECT_TRUE(rows.contains(expected)) << expected;
  }
  for (const diagnostics::Rule& rule : diagnostics::Rules()) {
    EXPECT_THAT(document, testing::HasSubstr("`" + std::string(rule.id) + "`"));
  }
}

}  // namespace
