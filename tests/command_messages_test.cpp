// What the command tells, in which form and on which stream.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/command_bench.h"

namespace {

using support::ProcessResult;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/// A directory with the models "shop.uml", of which one artifact has a warning and one an error,
/// and "clean.uml".
class CommandMessagesTest : public support::CommandBench {
 protected:
  CommandMessagesTest() {
    Write("shop.uml", Data("choice.uml"));
    Write("clean.uml", support::Replaced(Data("target.uml"), "TARGET_DIR", "out"));
  }

  /// Runs a shell's command on a terminal; what appears there.
  std::string OnTerminal(const std::string& script) const {
    const std::string words = support::Replaced(script, "COMMAND", IDLEXPORT_COMMAND);
    return support::RunProcess({"script", "-qec", words, "/dev/null"}, Directory()).output;
  }
};

TEST_F(CommandMessagesTest, GccFormComesOnStandardErrorBesidesTheAgentsText) {
  const ProcessResult result =
      Run({"--diagnostics=gcc", "-a", "files::bad", "-a", "files::goods", "shop.uml"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.output, HasSubstr("Error - constant Bad::LIMIT has no value\n"));
  EXPECT_THAT(
      result.errors,
      AllOf(
          StartsWith("shop.uml:41:3: warning: "),
          HasSubstr(
              "\nshop.uml:10:9: error: constant Bad::LIMIT has no value [constant-no-value]\n"),
          HasSubstr(
              "\nshop.uml:6:7: warning: struct Goods::Empty has no members [struct-no-members]\n"),
          HasSubstr("\nidlexport: passed over 1 xmi:Extension\n")));
  EXPECT_THAT(Run({"--diagnostics=gcc", "-a", "files::lonely", "shop.uml"}).errors,
              HasSubstr("\nshop.uml:20:7: error: IDL exporter failed to find root element to "
                        "export [nothing-to-export]\n"));
  EXPECT_THAT(Run({"--diagnostics=gcc", "-a", "unmarked", "shop.uml"}).errors,
              HasSubstr("\nshop.uml:25:5: error: export aborted: Failed to find value for "
                        "IDLGenerator::targetDir [setting-missing]\n"));
}

TEST_F(CommandMessagesTest, DocumentsStandAloneOnStandardOutput) {
  for (const std::string form : {"json", "sarif"}) {
    SCOPED_TRACE(form);
    const std::string option = "--diagnostics=" + form;
    const auto results = [&](const std::vector<std::string>& arguments, int status) {
      std::vector<std::string> words = {option};
      words.insert(words.end(), arguments.begin(), arguments.end());
      const ProcessResult result = Run(words);
      EXPECT_EQ(result.status, status) << result.errors;
      const auto document = nlohmann::json::parse(result.output);
      return form == "json" ? document["diagnostics"] : document["runs"][0]["results"];
    };
    const auto bad = results({"-a", "files::bad", "shop.uml"}, 1);
    ASSERT_EQ(bad.size(), 2U);
    EXPECT_THAT(bad[1].dump(), AllOf(HasSubstr("\"Bad::LIMIT\""), HasSubstr("\"LIMIT\"")));
    EXPECT_EQ(results({"clean.uml"}, 0).size(), 0U);
    EXPECT_EQ(results({"--verify", "-o", "other", "clean.uml"}, 3).size(), 0U);
    const auto failure = results({"missing.uml"}, 2);
    ASSERT_EQ(failure.size(), 1U);
    EXPECT_THAT(failure[0].dump(), HasSubstr("No such file"));
  }
}

TEST_F(CommandMessagesTest, WhatCanNotBeReadHasItsPlaceInEveryForm) {
  Write("cut.uml", "<a>\n <b>\n");
  EXPECT_THAT(Run({"--diagnostics=gcc", "cut.uml"}).errors,
              testing::ContainsRegex("^cut.uml:[23]:[0-9]+: error: .* .model-unreadable.\n$"));
  const auto document = nlohmann::json::parse(Run({"--diagnostics=json", "cut.uml"}).output);
  EXPECT_EQ(document["diagnostics"][0]["file"], "cut.uml");
  EXPECT_EQ(document["diagnostics"][0]["rule"], "model-unreadable");
  EXPECT_THAT(Run({"-a", "unmarked", "shop.uml"}).errors,
              HasSubstr("idlexport: the artifact 'unmarked' can't be exported: "));
}

TEST_F(CommandMessagesTest, WarningsFailOnlyWhenAskedTo) {
  const std::vector<std::string> words = {"-a", "files::goods", "shop.uml"};
  EXPECT_EQ(Run(words).status, 0);
  Remove("out");
  const ProcessResult result = Run({"--werror", "-a", "files::goods", "shop.uml"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.errors, HasSubstr("there are warnings, which --werror takes for errors"));
  EXPECT_FALSE(Exists("out"));
  EXPECT_EQ(Run({"--werror", "clean.uml"}).status, 0);
}

TEST_F(CommandMessagesTest, NamesThatAreNotLegalFailOnlyWhenStrict) {
  Write("keyword.uml", support::Replaced(Data("target.uml"), "\"one\"/>", "\"Struct\"/>"));
  const ProcessResult lenient = Run({"--verbatim", "-o", "out", "keyword.uml"});
  EXPECT_EQ(lenient.status, 0);
  EXPECT_THAT(lenient.errors, AllOf(HasSubstr("keyword.uml:6:"), HasSubstr("warning: "),
                                    HasSubstr("[idl-keyword]")));
  EXPECT_THAT(Text("out/files.idl"), HasSubstr("Struct"));
  const ProcessResult strict = Run({"--verbatim", "--strict", "-o", "strict", "keyword.uml"});
  EXPECT_EQ(strict.status, 1);
  EXPECT_THAT(strict.errors, AllOf(HasSubstr("error: "), HasSubstr("[idl-keyword]")));
  EXPECT_FALSE(Exists("strict"));
}

TEST_F(CommandMessagesTest, NoNameLeadsOutOfTheOutputDirectory) {
  for (const std::string name : {"../N", "..", "a/b", "a\\b", "/tmp/N", "N&#10;x"}) {
    for (const std::string mapping : {"one-file", "module-flat", "module-structured"}) {
      SCOPED_TRACE(name + " " + mapping);
      Write("unsafe.uml",
            support::Replaced(Data("target.uml"), "name=\"N\"", "name=\"" + name + "\""));
      const auto before = support::ReadTree(Directory());
      const ProcessResult result = Run({"--mapping", mapping, "-o", "deep/out", "unsafe.uml"});
      EXPECT_EQ(result.status, 1);
      EXPECT_THAT(result.errors, AllOf(HasSubstr("unsafe.uml:7:"), HasSubstr("[unsafe-name]")));
      EXPECT_EQ(support::ReadTree(Directory()), before);
    }
  }
  const ProcessResult file = Run({"--file-name", "../x", "-o", "out", "clean.uml"});
  EXPECT_EQ(file.status, 1);
  EXPECT_THAT(file.errors, HasSubstr("[unsafe-name]"));
}

TEST_F(CommandMessagesTest, QuietSaysNothingWhenThereIsNothingToSay) {
  const ProcessResult clean = Run({"--quiet", "clean.uml"});
  EXPECT_THAT(clean.output + clean.errors, IsEmpty());
  const ProcessResult warned = Run({"--quiet", "-a", "files::goods", "shop.uml"});
  EXPECT_THAT(warned.output, HasSubstr("Warning - struct Goods::Empty has no members"));
  EXPECT_THAT(warned.errors, Not(HasSubstr("idlexport: passed over")));
  EXPECT_THAT(Run({"--summary", "clean.uml"}).errors,
              testing::ContainsRegex("^idlexport: 0 files written, 1 unchanged, 0 removed; "
                                     "6 declarations; [0-9.]+ seconds\n$"));
}

TEST_F(CommandMessagesTest, TerminalsGetColoursAndALineOfProgress) {
  const std::string bad = "COMMAND -o out -a files::bad shop.uml";
  EXPECT_THAT(OnTerminal("TERM=xterm " + bad), HasSubstr("\033["));
  for (const char* plain : {"TERM=dumb ", "TERM=xterm NO_COLOR=1 "}) {
    EXPECT_THAT(OnTerminal(plain + bad), Not(HasSubstr("\033["))) << plain;
  }
  EXPECT_THAT(Run({"--color=always", "-a", "files::bad", "shop.uml"}).output, HasSubstr("\033["));

  // A model that comes slowly.
  const std::string slowly =
      "mkfifo slow.uml; (sleep 1; cat clean.uml) > slow.uml & "
      "TERM=xterm COMMAND -o out OPTION slow.uml; rm slow.uml";
  EXPECT_THAT(OnTerminal(support::Replaced(slowly, "OPTION", "")),
              AllOf(HasSubstr("\r\033[Kreading slow.uml"), HasSubstr("\r\033[K\r\nIDL exporter")));
  EXPECT_THAT(OnTerminal(support::Replaced(slowly, "OPTION", "--quiet")), IsEmpty());
  EXPECT_THAT(OnTerminal(support::Replaced(slowly, "OPTION", "2>errors")),
              Not(HasSubstr("reading")));
}

}  // namespace
