// The command as users and scripts run it: what it prints where, and its exit status.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/file_tree.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;
using support::OutputKind;
using support::ProcessResult;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

const std::string started = "\nIDL exporter started...\n";
const std::string aborted = "\nIDL exporter aborted.\n";

std::string DataFile(const std::string& name) {
  return std::string(IDLEXPORT_SOURCE_DIR "/tests/data/command/") + name;
}

class CommandTest : public testing::Test {
 protected:
  ProcessResult Run(std::vector<std::string> arguments,
                    OutputKind outputKind = OutputKind::kCaptured) const {
    arguments.insert(arguments.begin(), IDLEXPORT_COMMAND);
    return support::RunProcess(arguments, Directory(), outputKind);
  }

  const fs::path& Directory() const { return scratch_.Path(); }

 private:
  support::ScratchDirectory scratch_;
};

TEST_F(CommandTest, TellsItsVersionAndItsUsage) {
  const ProcessResult version = Run({"--version"});
  EXPECT_EQ(version.output, "idlexport 0.1.0\n");
  EXPECT_EQ(version.status, 0);

  const ProcessResult help = Run({"--help"});
  EXPECT_THAT(help.output, AllOf(HasSubstr("MODEL"), HasSubstr("-a,--artifact NAME"),
                                 HasSubstr("-o,--output DIR"), HasSubstr("--list"),
                                 HasSubstr("--version"), HasSubstr("Exit status")));
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(version.errors + help.errors, IsEmpty());
}

TEST_F(CommandTest, RefusesBadUsage) {
  const std::string model = DataFile("choice.uml");
  const struct {
    std::vector<std::string> arguments;
    std::string complaint;
  } cases[] = {
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
  const struct {
    std::string file;
    std::string content;
  } files[] = {
      {"empty.uml", ""},
      {"text.uml", "Dear reader,\nthis is no model.\n"},
      {"page.uml", "<html><body>Not found</body></html>\n"},
      {"old.uml", "<XMI xmi.version=\"1.2\"><XMI.content/></XMI>\n"},
      {"cut.uml", support::ReadFile(DataFile("choice.uml")).substr(0, 700)},
  };
  fs::create_directory(Directory() / "directory.uml");
  std::vector<std::string> names = {"missing.uml", "directory.uml", "text.uml/inside.uml"};
  for (const auto& [file, content] : files) {
    support::WriteFile(Directory() / file, content);
    names.push_back(file);
  }
  for (const std::string& name : names) {
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
  const ProcessResult result = Run({"--list", DataFile("choice.uml")});
  EXPECT_EQ(result.output, "files::goods\nfiles::bad\nfiles::lonely\nfiles\nnameless\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_FALSE(fs::exists(Directory() / "out"));
}

TEST_F(CommandTest, RemarksGoToStandardErrorWithTheirPlace) {
  const std::string model = DataFile("choice.uml");
  const ProcessResult result = Run({"--list", model});
  EXPECT_THAT(result.errors, StartsWith(model + ":41:3: warning: "));
  EXPECT_THAT(result.errors, EndsWith("\nidlexport: passed over 1 xmi:Extension\n"));
}

TEST_F(CommandTest, FindsTheArtifactByNameOrId) {
  for (const char* name : {"files::goods", "shop::files::goods", "files.goods"}) {
    SCOPED_TRACE(name);
    const ProcessResult result = Run({"-a", name, DataFile("choice.uml"), "--summary"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(support::ReadFile(Directory() / "out/goods.idl"), HasSubstr("struct Empty {"));
    fs::remove_all(Directory() / "out");
  }
  // There is a package of that name, too; only the artifact can be meant.
  EXPECT_EQ(Run({"-a", "files", DataFile("choice.uml")}).status, 0);
}

TEST_F(CommandTest, SaysWhyAnArtifactCanNotBeChosen) {
  const struct {
    std::string name;
    std::vector<std::string> complaints;
  } cases[] = {
      {"files::godos", {"'files::godos'", "did you mean", "files::goods"}},
      {"GOODS", {"'GOODS'", "did you mean", "files::goods"}},
      {"something else entirely", {"files::goods", "files::bad", "unmarked"}},
      {"twin", {"'twin'", "twin1", "twin2", "choice.uml:28"}},
      {"Goods::Empty", {"'Goods::Empty' is not an artifact"}},
      {"Empty", {"'Empty' is not an artifact"}},
  };
  for (const auto& [name, complaints] : cases) {
    SCOPED_TRACE(name);
    const ProcessResult result = Run({"-a", name, DataFile("choice.uml")});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_THAT(result.errors, HasSubstr("\nidlexport: "));
    for (const std::string& complaint : complaints) {
      EXPECT_THAT(result.errors, HasSubstr(complaint));
    }
  }
}

TEST_F(CommandTest, NeedsNoNameWhenThereIsOneExportableArtifact) {
  const ProcessResult several = Run({DataFile("choice.uml")});
  EXPECT_EQ(several.status, 2);
  EXPECT_THAT(several.errors, AllOf(HasSubstr("\n  files::goods\n  files::bad\n"),
                                    HasSubstr("nameless"), Not(HasSubstr("unmarked"))));

  const std::string model = support::ReadFile(DataFile("target.uml"));
  support::WriteFile(Directory() / "none.uml", support::Replaced(model, "IDLGenerator", "Other"));
  const ProcessResult none = Run({"none.uml"});
  EXPECT_EQ(none.status, 2);
  EXPECT_THAT(none.errors, AllOf(HasSubstr("none.uml"), HasSubstr("IDLGenerator")));

  support::WriteFile(Directory() / "one.uml", support::Replaced(model, "TARGET_DIR", "out"));
  const ProcessResult one = Run({"one.uml"});
  EXPECT_EQ(one.status, 0);
  EXPECT_EQ(one.output, started + "IDL exporter finished.\n");
  EXPECT_THAT(one.errors, IsEmpty());
}

TEST_F(CommandTest, PrintsTheAgentsMessagesAndDerivesTheStatusFromThem) {
  const struct {
    std::string name;
    std::string output;
    int status;
  } cases[] = {
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
    for (const std::vector<std::string>& target :
         {std::vector<std::string>{}, {"-o", "elsewhere"}}) {
      SCOPED_TRACE(name);
      std::vector<std::string> arguments = {"-a", name, DataFile("choice.uml")};
      arguments.insert(arguments.end(), target.begin(), target.end());
      const ProcessResult result = Run(arguments);
      EXPECT_EQ(result.output, output);
      EXPECT_EQ(result.status, status);
    }
  }
}

TEST_F(CommandTest, FailsWhereItCanNotWrite) {
  support::WriteFile(Directory() / "blocked", "a file, not a directory");
  const std::string absolute = (Directory() / "blocked/there").string();
  const struct {
    std::string target;
    std::string complaint;
  } cases[] = {
      {"blocked", "idlexport: can't make the directory 'blocked': "},
      {"blocked/there", "idlexport: can't make the directory 'blocked/there': "},
      {absolute, "idlexport: can't make the directory '" + absolute + "': "},
  };
  for (const auto& [target, complaint] : cases) {
    SCOPED_TRACE(target);
    const ProcessResult result = Run({"-a", "files::goods", "-o", target, DataFile("choice.uml")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_THAT(result.errors, HasSubstr(complaint));
  }
}

TEST_F(CommandTest, NoticesThatStandardOutputIsLost) {
  const std::vector<std::string> arguments = {"-a", "files::goods", DataFile("choice.uml")};
  Run(arguments);
  const fs::path file = Directory() / "out/goods.idl";
  const std::string idl = support::ReadFile(file);
  for (OutputKind kind : {OutputKind::kClosed, OutputKind::kBrokenPipe, OutputKind::kFull}) {
    SCOPED_TRACE(static_cast<int>(kind));
    fs::remove(file);
    const ProcessResult result = Run(arguments, kind);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("idlexport: can't write to standard output: "));
    EXPECT_EQ(support::ReadFile(file), idl) << "the file itself must not suffer";
    EXPECT_EQ(Run({"--help"}, kind).status, 1);
    EXPECT_EQ(Run({"--list", DataFile("choice.uml")}, kind).status, 1);
  }
}

TEST_F(CommandTest, FindsTheAgentBesideItself) {
  const fs::path command = IDLEXPORT_COMMAND;
  const fs::path agent = IDLEXPORT_AGENT;
  const fs::path moved = Directory() / "moved";
  fs::create_directories(moved / "bin");
  fs::create_directories(moved / "lib");
  fs::copy(command, moved / "bin/idlexport");
  fs::copy(agent.parent_path() / "libidlhost.so", moved / "lib/libidlhost.so");
  const std::vector<std::string> arguments = {(moved / "bin/idlexport").string(), "-a",
                                              "files::goods", DataFile("choice.uml")};

  const ProcessResult without = support::RunProcess(arguments, Directory());
  EXPECT_EQ(without.status, 2);
  EXPECT_THAT(without.output, IsEmpty());
  EXPECT_THAT(without.errors, HasSubstr("idlexport: can't load the export agent: " +
                                        (moved / "lib/libidlexport.so").string()));
  EXPECT_FALSE(fs::exists(Directory() / "out"));

  support::WriteFile(moved / "lib/libidlexport.so", "not a library");
  EXPECT_EQ(support::RunProcess(arguments, Directory()).status, 2);

  fs::copy(agent, moved / "lib/libidlexport.so", fs::copy_options::overwrite_existing);
  EXPECT_EQ(support::RunProcess(arguments, Directory()).status, 0);
  EXPECT_TRUE(fs::exists(Directory() / "out/goods.idl"));
}

}  // namespace
