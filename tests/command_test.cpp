// The command as users and scripts run it: what it prints where, and its exit status.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/support/command_bench.h"

namespace {

namespace fs = std::filesystem;
using support::OutputKind;
using support::ProcessResult;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::string started = "\nIDL exporter started...\n";
const std::string aborted = "\nIDL exporter aborted.\n";

/// With the model "shop.uml", which has artifacts of all kinds.
class CommandTest : public support::CommandBench {
 protected:
  CommandTest() { Write("shop.uml", Data("choice.uml")); }
};

TEST_F(CommandTest, TellsItsVersionAndItsUsage) {
  const ProcessResult version = Run({"--version"});
  EXPECT_EQ(version.output, "idlexport 0.1.0\n");
  const ProcessResult help = Run({"--help"});
  EXPECT_THAT(help.output, AllOf(HasSubstr("MODEL"), HasSubstr("-a,--artifact NAME"),
                                 HasSubstr("--version"), HasSubstr("Exit status")));
  EXPECT_EQ(version.status + help.status, 0);
  EXPECT_THAT(version.errors + help.errors, IsEmpty());
}

TEST_F(CommandTest, RefusesBadUsage) {
  const std::string model = "shop.uml";
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{}, "MODEL"},
      {{"--frobnicate", model}, "--frobnicate"},
      {{model, "second.uml"}, "second.uml"},
      {{"-o"}, "--output"},
      {{"-o", "", model}, "--output"},
      {{"-a", "", model}, "--artifact"},
      {{"--check", "--verify", model}, "--verify"},
      {{"--mapping", "flat", model}, "module-flat"},
      {{"--map", "pathmap", model}, "PREFIX=DIR"},
      {{"--target", "x", model}, "--depfile"},
  };
  for (const auto& [arguments, complaint] : cases) {
    SCOPED_TRACE(testing::PrintToString(arguments));
    const ProcessResult result = Run(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_THAT(result.errors, AllOf(StartsWith("idlexport: "), HasSubstr(complaint)));
  }
}

TEST_F(CommandTest, RefusesWhatIsNoModel) {
  fs::create_directory(Directory() / "directory.uml");
  Write("text.uml", "Dear reader,\nthis is no model.\n");
  Write("cut.uml", Text("shop.uml").substr(0, 700));
  for (const std::string name :
       {"missing.uml", "directory.uml", "text.uml", "cut.uml", "text.uml/inside.uml"}) {
    for (const char* option : {"--list", "-ofiles"}) {
      SCOPED_TRACE(name + " " + option);
      const ProcessResult result = Run({option, name});
      EXPECT_EQ(result.status, 2);
      EXPECT_THAT(result.output, IsEmpty());
      EXPECT_THAT(result.errors, StartsWith("idlexport: " + name + ":"));
    }
  }
}

TEST_F(CommandTest, ListsTheArtifactsThatCarryGeneratorSettings) {
  const ProcessResult result = Run({"--list", "shop.uml"});
  EXPECT_EQ(result.output, "files::goods\nfiles::bad\nfiles::lonely\nfiles\nnameless\n");
  EXPECT_THAT(result.errors, AllOf(StartsWith("shop.uml:41:3: warning: "),
                                   EndsWith("\nidlexport: passed over 1 xmi:Extension\n")));
  EXPECT_EQ(result.status, 0);

  Write("odd.uml", support::Replaced(Text("shop.uml"), "\"goods\"", "\"go&#10;ods\""));
  EXPECT_THAT(Run({"--list", "odd.uml"}).output, StartsWith("files.goods\nfiles::bad\n"));
}

TEST_F(CommandTest, FindsTheArtifactByNameOrId) {
  for (const char* name : {"files::goods", "shop::files::goods", "files.goods"}) {
    SCOPED_TRACE(name);
    const ProcessResult result = Run({"-a", name, "shop.uml", "--summary"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(Text("out/goods.idl"), HasSubstr("struct Empty {"));
    Remove("out");
  }
  // There is a package of that name, too; only the artifact can be meant.
  EXPECT_EQ(Run({"-a", "files", "shop.uml"}).status, 0);
}

TEST_F(CommandTest, SaysWhyAnArtifactCanNotBeChosen) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"files::godos", {"'files::godos'", "did you mean", "files::goods"}},
      {"GOODS", {"'GOODS'", "did you mean", "files::goods"}},
      {"something else entirely", {"files::goods", "files::bad", "unmarked"}},
      {"twin", {"'twin'", "twin1", "twin2", "shop.uml:28"}},
      {"Goods::Empty", {"'Goods::Empty' is not an artifact"}},
      {"Empty", {"'Empty' is not an artifact"}},
  };
  for (const auto& [name, complaints] : cases) {
    SCOPED_TRACE(name);
    const ProcessResult result = Run({"-a", name, "shop.uml"});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_THAT(result.errors, HasSubstr("\nidlexport: "));
    for (const std::string& complaint : complaints) {
      EXPECT_THAT(result.errors, HasSubstr(complaint));
    }
  }
}

TEST_F(CommandTest, NeedsNoNameWhenThereIsOneExportableArtifact) {
  const ProcessResult several = Run({"shop.uml"});
  EXPECT_EQ(several.status, 2);
  EXPECT_THAT(several.errors, AllOf(HasSubstr("\n  files::goods\n  files::bad\n"),
                                    HasSubstr("nameless"), Not(HasSubstr("unmarked"))));

  Write("none.uml", support::Replaced(Data("target.uml"), "IDLGenerator", "Other"));
  const ProcessResult none = Run({"none.uml"});
  EXPECT_EQ(none.status, 2);
  EXPECT_THAT(none.errors, AllOf(HasSubstr("none.uml"), HasSubstr("IDLGenerator")));

  Write("one.uml", support::Replaced(Data("target.uml"), "TARGET_DIR", "out"));
  const ProcessResult one = Run({"one.uml"});
  EXPECT_EQ(one.status, 0);
  EXPECT_EQ(one.output, started + "IDL exporter finished.\n");
  EXPECT_THAT(one.errors, IsEmpty());
}

TEST_F(CommandTest, PrintsTheAgentsMessagesAndDerivesTheStatusFromThem) {
  const std::tuple<std::string, std::string, int> cases[] = {
      {"files::goods",
       started + "Warning - struct Goods::Empty has no members\n" +
           "There were 0 errors and 1 warningsIDL exporter finished.\n",
       0},
      {"files::bad",
       started + "Error - constant Bad::LIMIT has no value\n" +
           "There were 1 errors and 0 warningsIDL exporter finished.\n",
       1},
      {"files::lonely", started + "IDL exporter failed to find root element to export.\n" + aborted,
       1},
      {"unmarked",
       started + "Internal error in IDL exporter agent: " +
           "Failed to find value for IDLGenerator::targetDir.\n" + aborted,
       1},
  };
  for (const auto& [name, output, status] : cases) {
    for (const char* target : {"-oout", "-oelsewhere"}) {
      SCOPED_TRACE(name);
      const ProcessResult result = Run({"-a", name, "shop.uml", target});
      EXPECT_EQ(result.output, output);
      EXPECT_EQ(result.status, status);
    }
  }
}

TEST_F(CommandTest, FailsWhereItCanNotWrite) {
  Write("blocked", "a file, not a directory");
  for (const std::string& target : {std::string("blocked"), std::string("blocked/there"),
                                    (Directory() / "blocked/x").string()}) {
    SCOPED_TRACE(target);
    const ProcessResult result = Run({"-a", "files::goods", "-o", target, "shop.uml"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_THAT(result.errors, HasSubstr("idlexport: can't make the directory '" + target + "': "));
  }
}

TEST_F(CommandTest, NoticesThatStandardOutputIsLost) {
  const std::vector<std::string> arguments = {"-a", "files::goods", "shop.uml"};
  Run(arguments);
  const std::string idl = Text("out/goods.idl");
  for (OutputKind kind : {OutputKind::kClosed, OutputKind::kBrokenPipe, OutputKind::kFull}) {
    SCOPED_TRACE(static_cast<int>(kind));
    Remove("out");
    const ProcessResult result = Run(arguments, kind);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("idlexport: can't write to standard output: "));
    EXPECT_EQ(Text("out/goods.idl"), idl) << "the file itself must not suffer";
    EXPECT_EQ(Run({"--help"}, kind).status, 1);
    EXPECT_EQ(Run({"--list", "shop.uml"}, kind).status, 1);
  }
}

}  // namespace
