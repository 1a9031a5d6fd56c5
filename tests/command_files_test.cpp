// What the command does to the files in place: when they change, when they must not, and what a
// build is told about them.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/command_bench.h"

namespace {

namespace fs = std::filesystem;
using support::ProcessResult;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// A directory with the model "m.uml", which makes files.idl, M.idl and M_N.idl in "out".
class CommandFilesTest : public support::CommandBench {
 protected:
  CommandFilesTest() { WriteModel("MODULE_FLAT"); }

  void WriteModel(const std::string& mapping, const std::string& from = "one",
                  const std::string& to = "one") const {
    std::string text = support::Replaced(Data("target.uml"), "TARGET_DIR", "out");
    text = support::Replaced(text, "FILE_MAPPING", mapping);
    Write("m.uml", support::Replaced(text, from, to));
  }

  /// The names of all files in and below "out", manifest included.
  std::vector<std::string> OutputFiles() const {
    std::vector<std::string> files;
    for (const auto& [file, text] : support::ReadTree(Directory() / "out")) files.push_back(file);
    return files;
  }

  fs::file_time_type TimeOf(const std::string& file) const {
    return fs::last_write_time(Directory() / file);
  }
  void SetTime(const std::string& file, fs::file_time_type time) const {
    fs::last_write_time(Directory() / file, time);
  }
};

const fs::file_time_type longAgo = fs::file_time_type::clock::now() - std::chrono::hours(48);

TEST_F(CommandFilesTest, FilesWhoseBytesAreTheSameAreNotTouched) {
  ASSERT_EQ(Run({"m.uml"}).status, 0);
  for (const std::string& file : OutputFiles()) SetTime("out/" + file, longAgo);
  WriteModel("MODULE_FLAT", "name=\"two\"", "name=\"three\"");
  const ProcessResult again = Run({"--summary", "m.uml"});
  EXPECT_THAT(again.errors, HasSubstr("1 file written, 2 unchanged"));
  for (const std::string& file : OutputFiles()) {
    EXPECT_EQ(TimeOf("out/" + file) == longAgo, file != "M_N.idl") << file;
  }
  EXPECT_THAT(Text("out/M_N.idl"), HasSubstr("three"));
}

TEST_F(CommandFilesTest, ARunThatFailsLeavesTheEarlierFilesWhole) {
  ASSERT_EQ(Run({"m.uml"}).status, 0);
  const auto before = support::ReadTree(Directory() / "out");
  const struct {
    std::string what;
    std::string model;  // of the data files, with the artifact of the earlier files' name
    std::string script;
  } cases[] = {
      {"errors in the model", support::Replaced(Data("choice.uml"), "goods\"", "files\""),
       "COMMAND -a files::bad --file-name files m.uml"},
      {"warnings, which count", Data("choice.uml"),
       "COMMAND --werror -a files::goods --file-name files m.uml"},
      {"a limit that acts as a full disk", Source("examples/bank.uml"),
       "ulimit -f 1; COMMAND --mapping one-file -a one_file --file-name files -o out m.uml"},
      {"a file in the way of a directory", Data("target.uml"),
       "COMMAND --mapping module-structured -o out/M.idl m.uml"},
      {"a directory in the way of the second artifact's file", Source("examples/bank.uml"),
       "mkdir out/flat.idl; COMMAND -o out -a one_file -a flat m.uml; s=$?; rmdir out/flat.idl; "
       "exit $s"},
      {"a depfile that can't be written", Data("target.uml"),
       "COMMAND --mapping one-file --depfile no/such/place -o out m.uml"},
      {"a stamp that can't be written", Data("target.uml"),
       "COMMAND --mapping one-file --stamp no/such/place -o out m.uml"},
      {"a directory in the way of a file", Data("target.uml"),
       "mkdir out/g.idl; COMMAND --mapping module-flat --file-name g -o out m.uml; s=$?; "
       "rmdir out/g.idl; exit $s"},
  };
  for (const auto& [what, model, script] : cases) {
    SCOPED_TRACE(what);
    Write("m.uml", model);
    const ProcessResult result = RunInShell(script);
    EXPECT_EQ(result.status, 1) << result.output << result.errors;
    EXPECT_EQ(support::ReadTree(Directory() / "out"), before);
    EXPECT_FALSE(Exists("out/M.idl/files.idl"));
  }
}

/// A pipe that takes nothing more: who writes to it stops there.
class FullPipe {
 public:
  FullPipe() {
    if (pipe2(ends_, O_CLOEXEC | O_NONBLOCK) != 0) throw std::runtime_error("can't make a pipe");
    while (write(ends_[1], "x", 1) == 1) {
    }
    fcntl(ends_[1], F_SETFL, 0);
  }
  ~FullPipe() {
    for (const int end : ends_) close(end);
  }

  int End() const { return ends_[1]; }

 private:
  int ends_[2];
};

TEST_F(CommandFilesTest, AnInterruptedRunLeavesNothingBehind) {
  const FullPipe pipe;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    SCOPED_TRACE(signal);
    // The agent's first message can't be written, so the run surely is in the middle.
    const support::RunningProcess run({IDLEXPORT_COMMAND, "-o", ".", "m.uml"}, Directory(),
                                      pipe.End());
    while (std::distance(fs::directory_iterator(Directory()), {}) == 1) std::this_thread::yield();
    EXPECT_EQ(run.EndBy(signal), 128 + signal);
    EXPECT_EQ(std::distance(fs::directory_iterator(Directory()), {}), 1) << "only the model";
  }
}

TEST_F(CommandFilesTest, AnInterruptedRunEndsTheProgramThatItStarted) {
  Write("dot",
        "#!/bin/sh\ntrap 'touch ended; exit' TERM\ntouch begun\nwhile :; do sleep 0.01; done\n");
  fs::permissions(Directory() / "dot", fs::perms::owner_all);
  const support::RunningProcess run({"env", "PATH=" + Directory().string() + ":/bin:/usr/bin",
                                     IDLEXPORT_COMMAND, "-o", "out", "--graph", "g.svg", "m.uml"},
                                    Directory(), STDERR_FILENO);
  while (!Exists("begun")) std::this_thread::yield();
  EXPECT_EQ(run.EndBy(SIGTERM), 128 + SIGTERM);
  for (int i = 0; i < 1000 && !Exists("ended"); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_TRUE(Exists("ended"));
}

TEST_F(CommandFilesTest, WhatAKilledRunLeftIsRemovedByTheNext) {
  const fs::path left = Directory() / "out/.idlexport-staging-abc123";
  support::WriteFile(left / "deep/N.idl", "half");
  Write("out/.idlexport-staging-own/file", "somebody's own");
  fs::permissions(left, fs::perms::owner_all);
  EXPECT_EQ(Run({"m.uml"}).status, 0);
  EXPECT_THAT(OutputFiles(), ElementsAre(".idlexport", ".idlexport-staging-own/file", "M.idl",
                                         "M_N.idl", "files.idl"));
  EXPECT_FALSE(fs::exists(left));
}

TEST_F(CommandFilesTest, PruneRemovesWhatTheArtifactNoLongerMakes) {
  WriteModel("MODULE_STRUCTURED");
  ASSERT_EQ(Run({"m.uml"}).status, 0);
  Write("out/M/own.idl", "somebody's own");
  ASSERT_EQ(Run({"-o", "out", "--file-name", "other", "m.uml"}).status, 0);
  EXPECT_TRUE(Exists("out/files.idl")) << "not without --prune";

  WriteModel("ONE_FILE", "xmi:id=\"files\" name=\"files\"", "xmi:id=\"files\" name=\"renamed\"");
  const ProcessResult pruned = Run({"--prune", "--summary", "m.uml"});
  EXPECT_THAT(pruned.errors, HasSubstr("4 removed"));
  EXPECT_THAT(OutputFiles(), ElementsAre(".idlexport", "M/own.idl", "renamed.idl"));
  EXPECT_FALSE(Exists("out/M/N"));
}

TEST_F(CommandFilesTest, PruneSparesFilesOfOtherArtifactsAndOtherPlaces) {
  const std::string model = Data("choice.uml");
  Write("shop.uml", model);
  ASSERT_EQ(Run({"-a", "files::goods", "shop.uml"}).status, 0);
  ASSERT_EQ(Run({"-a", "files", "shop.uml"}).status, 0);
  ASSERT_EQ(Run({"m.uml"}).status, 0);
  EXPECT_EQ(Run({"--prune", "-a", "files", "--file-name", "new", "shop.uml"}).status, 0);
  EXPECT_TRUE(Exists("out/goods.idl"));
  EXPECT_TRUE(Exists("out/files.idl")) << "which the artifact of another model makes, too";

  // A manifest that somebody changed must not get at files elsewhere, nor at what is made.
  Write("mine.txt", "mine");
  fs::create_symlink("..", Directory() / "out/up");
  const std::string manifest = Text("out/.idlexport");
  const std::string absolute = (Directory() / "mine.txt").string();
  std::string changed = manifest;
  for (const std::string& file :
       std::vector<std::string>{"../mine.txt", absolute, "up/mine.txt", "./files.idl",
                                "out/../files.idl", ".idlexport", ""}) {
    changed += "../m.uml#files\t" + file + "\n";
  }
  Write("out/.idlexport", changed + "nonsense\n");
  EXPECT_EQ(Run({"--prune", "m.uml"}).status, 0);
  EXPECT_EQ(Text("mine.txt"), "mine");
  EXPECT_EQ(Text("out/.idlexport"), manifest);
}

TEST_F(CommandFilesTest, ChecksAndListsAndComparesWithoutWriting) {
  for (const char* purpose : {"--check", "--verify", "--outputs", "--list"}) {
    SCOPED_TRACE(purpose);
    const ProcessResult result = Run({purpose, "m.uml"});
    EXPECT_EQ(result.status, std::string(purpose) == "--verify" ? 3 : 0);
    EXPECT_FALSE(Exists("out"));
  }
  EXPECT_EQ(Run({"--outputs", "m.uml"}).output, "out/M.idl\nout/M_N.idl\nout/files.idl\n");
  EXPECT_EQ(Run({"--outputs", "-o", ".", "m.uml"}).output, "M.idl\nM_N.idl\nfiles.idl\n");
  Write("bad.uml", Data("choice.uml"));
  EXPECT_EQ(Run({"--check", "-a", "files::bad", "bad.uml"}).status, 1);
}

TEST_F(CommandFilesTest, VerifyTellsTheDifferenceAsADiff) {
  ASSERT_EQ(Run({"m.uml"}).status, 0);
  const ProcessResult same = Run({"--verify", "m.uml"});
  EXPECT_EQ(same.status, 0);
  EXPECT_THAT(same.output, IsEmpty());

  WriteModel("MODULE_FLAT", "name=\"two\"", "name=\"three\"");
  Remove("out/files.idl");
  const auto before = support::ReadTree(Directory() / "out");
  const ProcessResult result = Run({"--verify", "m.uml"});
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.output, AllOf(HasSubstr("--- out/M_N.idl\t"), HasSubstr("+++ out/M_N.idl\t"),
                                   HasSubstr("--- /dev/null\t"), HasSubstr("+++ out/files.idl\t"),
                                   Not(HasSubstr("M.idl\t(in"))));
  EXPECT_EQ(support::ReadTree(Directory() / "out"), before);

  Write("change.diff", result.output);
  EXPECT_EQ(support::RunProcess({"patch", "-p0", "-i", "change.diff"}, Directory()).status, 0);
  EXPECT_EQ(Run({"--verify", "m.uml"}).status, 0);

  WriteModel("ONE_FILE");
  ASSERT_EQ(Run({"m.uml"}).status, 0);
  EXPECT_EQ(Run({"--verify", "m.uml"}).status, 0);
  const ProcessResult stale = Run({"--verify", "--prune", "m.uml"});
  EXPECT_EQ(stale.status, 3);
  EXPECT_THAT(stale.output, AllOf(HasSubstr("--- out/M.idl\t"), HasSubstr("+++ /dev/null\t")));
}

TEST_F(CommandFilesTest, WritesTheRuleThatMakeReads) {
  const fs::path library = Directory() / "my lib$#1/types.uml";
  support::WriteFile(library, support::Replaced(Data("target.uml"), "IDLGenerator", "Other"));
  WriteModel("ONE_FILE", "<manifestation",
             "<ownedComment><annotatedElement href=\"my%20lib$%231/types.uml#M\"/></ownedComment>"
             "<manifestation");
  ASSERT_EQ(Run({"--depfile", "m.d", "--target", "a stamp", "--stamp", "a stamp", "m.uml"}).status,
            0);
  EXPECT_EQ(Text("m.d"),
            "a\\ stamp: \\\n  m.uml \\\n  my\\ lib$$\\#1/types.uml\n\n"
            "m.uml:\n\nmy\\ lib$$\\#1/types.uml:\n");
  ASSERT_TRUE(Exists("a stamp"));

  // Real make agrees about what is out of date.
  Write("Makefile", "a\\ stamp:\n\techo again > again; touch 'a stamp'\ninclude m.d\n");
  const auto isRemade = [&] {
    Remove("again");
    EXPECT_EQ(support::RunProcess({"make", "-s"}, Directory()).status, 0);
    return Exists("again");
  };
  EXPECT_FALSE(isRemade());
  fs::last_write_time(library, fs::file_time_type::clock::now() + std::chrono::hours(1));
  EXPECT_TRUE(isRemade());
  fs::remove(library);
  EXPECT_TRUE(isRemade());
}

TEST_F(CommandFilesTest, NamesATargetItselfAndTouchesTheStampOnlyOnSuccess) {
  ASSERT_EQ(Run({"--depfile", "m.d", "m.uml"}).status, 0);
  EXPECT_THAT(Text("m.d"), testing::StartsWith("out/M.idl: "));
  ASSERT_EQ(Run({"--depfile", "m.d", "--stamp", "done", "m.uml"}).status, 0);
  EXPECT_THAT(Text("m.d"), testing::StartsWith("done: "));
  SetTime("done", longAgo);
  EXPECT_EQ(Run({"--stamp", "done", "--stamp", "done", "m.uml"}).status, 2);
  WriteModel("ONE_FILE");
  EXPECT_EQ(Run({"--verify", "--stamp", "done", "m.uml"}).status, 3);
  EXPECT_EQ(TimeOf("done"), longAgo);
  EXPECT_EQ(Run({"--stamp", "done", "m.uml"}).status, 0);
  EXPECT_GT(TimeOf("done"), longAgo);

  const ProcessResult unwritable = Run({"--stamp", "no/such/place", "m.uml"});
  EXPECT_EQ(unwritable.status, 1);
  EXPECT_THAT(unwritable.errors, HasSubstr("can't write 'no/such/place': No such file"));
}

TEST_F(CommandFilesTest, OverrulesTheArtifactsSettings) {
  const std::pair<std::string, std::string> cases[] = {
      {"--mapping one-file", "files.idl\n"},
      {"--mapping module-structured", "M/M.idl\nM/N/N.idl\nfiles.idl\n"},
      {"--suffix _x --file-name all", "M_N_x.idl\nM_x.idl\nall_x.idl\n"},
  };
  for (const auto& [options, files] : cases) {
    EXPECT_EQ(RunInShell("COMMAND --outputs -o . m.uml " + options).output, files) << options;
  }
}

TEST_F(CommandFilesTest, ExportsSeveralArtifactsOfOneReading) {
  Write("shop.uml", Data("choice.uml"));
  const ProcessResult both =
      Run({"-a", "files::goods", "-a", "files", "-a", "files.goods", "--summary", "shop.uml"});
  EXPECT_EQ(both.status, 0);
  EXPECT_THAT(OutputFiles(), ElementsAre(".idlexport", "files.idl", "goods.idl"));
  EXPECT_THAT(both.errors, HasSubstr("2 files written"));

  // All or nothing.
  EXPECT_EQ(Run({"-a", "files::goods", "-a", "files::bad", "-o", "new", "shop.uml"}).status, 1);
  EXPECT_FALSE(Exists("new"));
  EXPECT_EQ(Run({"-a", "files::goods", "-a", "files::godos", "-o", "new", "shop.uml"}).status, 2);

  // One file can't be made in two ways; in one way it can.
  EXPECT_EQ(RunInShell("COMMAND -a files::goods -a files -o new --file-name x shop.uml").status, 0);
  Write("bank.uml", Source("examples/bank.uml"));
  const ProcessResult clash =
      Run({"-a", "one_file", "-a", "flat", "-o", "new", "--file-name", "x", "bank.uml"});
  EXPECT_EQ(clash.status, 1);
  EXPECT_THAT(clash.errors, HasSubstr("several of the artifacts make 'new/x.idl'"));
}

}  // namespace
