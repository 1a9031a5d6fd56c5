// The forms in which diagnostics are written: for editors, for scripts, for terminals.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "diagnostics/colour.h"
#include "diagnostics/forms.h"
#include "diagnostics/rules.h"

namespace {

using diagnostics::ColourMode;
using diagnostics::Diagnostic;
using diagnostics::Severity;
using nlohmann::json;

const Diagnostic all[] = {
    {Severity::kWarning,
     "struct S has no members",
     "struct-no-members",
     {"m.uml", 3, 7},
     "M::S",
     "s1",
     {{"the other S", {"n.uml", 5, 2}}}},
    {Severity::kError,
     "name \"a\nb\x1b\x7f\"",
     "idl-identifier",
     {"/a b/\xC3\xA9#?.uml", 4, 0},
     "M::a\nb",
     "",
     {}},
    {Severity::kError,
     "bad \xFF\xC3 text",
     "of-a-colleague",
     {"a:b/../%.uml", 0, 0},
     "",
     "\xFF",
     {}},
    {Severity::kWarning, "nothing to blame", "struct-no-members", {}, "", "", {}},
};

TEST(GccForm, IsOneLineEach) {
  EXPECT_EQ(diagnostics::GccForm({}), "");
  EXPECT_EQ(diagnostics::GccForm(all),
            "m.uml:3:7: warning: struct S has no members [struct-no-members]\n"
            "n.uml:5:2: note: the other S\n"
            "/a b/\xC3\xA9#?.uml:4: error: name \"a\\nb\\x1b\\x7f\" [idl-identifier]\n"
            "a:b/../%.uml: error: bad \xFF\xC3 text [of-a-colleague]\n"
            "idlexport: warning: nothing to blame [struct-no-members]\n");
  EXPECT_EQ(diagnostics::GccForm({&all[0], 1}, true),
            "m.uml:3:7: \x1b[1;35mwarning:\x1b[m struct S has no members [struct-no-members]\n"
            "n.uml:5:2: \x1b[1;36mnote:\x1b[m the other S\n");
}

TEST(JsonForm, HasWhatIsKnown) {
  EXPECT_EQ(
      diagnostics::JsonForm({}),
      "{\"version\":1,\"summary\":{\"errors\":0,\"warnings\":0,\"notes\":0},\"diagnostics\":[]}\n");
  const json found = json::parse(diagnostics::JsonForm(all));
  EXPECT_EQ(found, json::parse(R"({
    "version": 1,
    "summary": {"errors": 2, "warnings": 2, "notes": 0},
    "diagnostics": [
      {"severity": "warning", "rule": "struct-no-members", "message": "struct S has no members",
       "file": "m.uml", "line": 3, "column": 7, "element": "M::S", "id": "s1",
       "related": [{"message": "the other S", "file": "n.uml", "line": 5, "column": 2}]},
      {"severity": "error", "rule": "idl-identifier", "message": "name \"a\nb\u001b\u007f\"",
       "file": "/a b/é#?.uml", "line": 4, "element": "M::a\nb"},
      {"severity": "error", "rule": "of-a-colleague", "message": "bad \ufffd\ufffd text",
       "file": "a:b/../%.uml", "id": "\ufffd"},
      {"severity": "warning", "rule": "struct-no-members", "message": "nothing to blame"}
    ]})"));
}

TEST(SarifForm, HasWhatTheFormatRequiresAndLeadsToTheSpot) {
  const json log = json::parse(diagnostics::SarifForm(all));
  EXPECT_EQ(log.at("version"), "2.1.0");
  ASSERT_EQ(log.at("runs").size(), 1U);
  const json& run = log["runs"][0];
  const json& driver = run.at("tool").at("driver");
  EXPECT_EQ(driver.at("name"), "idlexport");
  EXPECT_FALSE(driver.at("version").get<std::string>().empty());
  const json& results = run.at("results");
  ASSERT_EQ(results.size(), std::size(all));
  for (std::size_t i = 0; i < std::size(all); ++i) {
    const std::size_t index = results[i].at("ruleIndex").get<std::size_t>();
    EXPECT_EQ(driver.at("rules").at(index).at("id"), all[i].rule);
    EXPECT_EQ(results[i].at("ruleId"), all[i].rule);
    EXPECT_EQ(results[i].at("level"), all[i].severity == Severity::kError ? "error" : "warning");
    EXPECT_FALSE(results[i].at("message").at("text").get<std::string>().empty());
  }
  EXPECT_EQ(driver["rules"].size(), 3U);
  for (const json& rule : driver["rules"]) {
    EXPECT_EQ(rule.contains("shortDescription"),
              diagnostics::FindRule(rule.at("id").get<std::string>()) != nullptr);
  }
  EXPECT_EQ(json::parse(diagnostics::SarifForm({}))["runs"][0].at("results"), json::array());

  EXPECT_EQ(results[0], json::parse(R"({
    "ruleId": "struct-no-members", "ruleIndex": 2, "level": "warning",
    "message": {"text": "struct S has no members"},
    "locations": [{
      "physicalLocation": {"artifactLocation": {"uri": "m.uml"},
                           "region": {"startLine": 3, "startColumn": 7}},
      "logicalLocations": [{"fullyQualifiedName": "M::S"}]}],
    "partialFingerprints": {"ruleAndId/v1": "struct-no-members:s1"},
    "properties": {"id": "s1"},
    "relatedLocations": [{
      "physicalLocation": {"artifactLocation": {"uri": "n.uml"},
                           "region": {"startLine": 5, "startColumn": 2}},
      "message": {"text": "the other S"}}]})"));
  EXPECT_EQ(results[1]["locations"], json::parse(R"([{
    "physicalLocation": {"artifactLocation": {"uri": "file:///a%20b/%C3%A9%23%3F.uml"},
                         "region": {"startLine": 4}},
    "logicalLocations": [{"fullyQualifiedName": "M::a\nb"}]}])"));
  EXPECT_EQ(results[2]["locations"], json::parse(R"([{
    "physicalLocation": {"artifactLocation": {"uri": "a%3Ab/../%25.uml"}}}])"));
  EXPECT_FALSE(results[3].contains("locations"));
}

TEST(Colour, IsUsedWhereAPersonReads) {
  const struct {
    ColourMode mode;
    diagnostics::ColourSurroundings surroundings;
    bool used;
  } cases[] = {
      {ColourMode::kAuto, {true, "xterm", nullptr}, true},
      {ColourMode::kAuto, {true, "xterm", ""}, true},
      {ColourMode::kAuto, {true, "xterm", "0"}, false},
      {ColourMode::kAuto, {false, "xterm", nullptr}, false},
      {ColourMode::kAuto, {true, "dumb", nullptr}, false},
      {ColourMode::kAuto, {true, "", nullptr}, false},
      {ColourMode::kAuto, {true, nullptr, nullptr}, false},
      {ColourMode::kAlways, {false, "dumb", "1"}, true},
      {ColourMode::kNever, {true, "xterm", nullptr}, false},
  };
  for (const auto& [mode, surroundings, used] : cases) {
    EXPECT_EQ(diagnostics::UsesColour(mode, surroundings), used)
        << static_cast<int>(mode) << testing::PrintToString(surroundings.term);
  }
  EXPECT_EQ(diagnostics::ColourModeOf("auto"), ColourMode::kAuto);
  EXPECT_EQ(diagnostics::ColourModeOf("always"), ColourMode::kAlways);
  EXPECT_EQ(diagnostics::ColourModeOf("never"), ColourMode::kNever);
  for (const char* word : {"", "Auto", "yes"})
    EXPECT_EQ(diagnostics::ColourModeOf(word), std::nullopt);
}

TEST(Colour, MarksTheWordsThatTellOfFailures) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"Error - ", "\x1b[1;31mError\x1b[m - "},
      {"Warning - ", "\x1b[1;35mWarning\x1b[m - "},
      {"Internal error in IDL exporter agent: ",
       "\x1b[1;31mInternal error\x1b[m in IDL exporter agent: "},
      {"\nIDL exporter aborted.\n", "\n\x1b[1;31mIDL exporter aborted.\x1b[m\n"},
      {"struct Error - has no members", "struct Error - has no members"},
      {"There were 1 errors and 0 warnings", "There were 1 errors and 0 warnings"},
      {"", ""},
  };
  for (const auto& [piece, coloured] : cases)
    EXPECT_EQ(diagnostics::ColouredPiece(piece), coloured);
}

}  // namespace
