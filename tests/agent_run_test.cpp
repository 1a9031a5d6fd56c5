// A run of the agent as a whole: its phases and messages, its settings, and what it leaves behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <list>
#include <string>

#include "agent/export_run.h"
#include "model/model.h"
#include "tests/support/export.h"
#include "tests/support/wrapping_host.h"

namespace {

using model::Element;
using model::Symbol;
using support::ExportBench;
using support::Exported;
using support::Fault;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

const std::string started = "\nIDL exporter started...\n";
const std::string finished = "IDL exporter finished.\n";
const std::string aborted = "\nIDL exporter aborted.\n";
const std::string internal = "Internal error in IDL exporter agent: ";

/// How many tags of nodes are in a model.
std::size_t TagCount(ExportBench& bench) {
  std::list<mdk::IMdeEntity*> tags;
  bench.Model().FindEntity("@CORBA@Node")->GetReferrers("InstanceOf", tags);
  return tags.size();
}

TEST(AgentRun, PrintsItsPhasesPieceByPieceAndWritesNothingWhenThereAreErrors) {
  ExportBench bench;
  auto& module = bench.Module("M");
  bench.Struct(module, "Empty");
  bench.Attribute(bench.Struct(module, "Typed"), "x", "");
  const Exported run = bench.Export({&module});
  EXPECT_THAT(run.pieces,
              ElementsAre(started, "Warning - ", "struct M::Empty has no members", "\n", "Error - ",
                          "attribute M::Typed::x has a type that could not be identified", "\n",
                          "There were 1 errors and 1 warnings", finished));
  EXPECT_EQ(run.Body(), "");
}

TEST(AgentRun, SaysNothingWithoutAnElementOrAnOutput) {
  ExportBench bench;
  EXPECT_THAT(bench.Run(nullptr).pieces, IsEmpty());
  mdktoidl::RunExport(&bench.Artifact({&bench.Module("M")}));
  EXPECT_TRUE(std::filesystem::is_empty(bench.Directory()));
}

TEST(AgentRun, AbortsForEachMissingSetting) {
  // In the order in which they are read: the model has all those before the missing one.
  const std::pair<std::string, std::string> settings[] = {
      {"targetDir", "targetDir."},    {"fileName", "fileFname."},
      {"fileSuffix", "fileSuffix."},  {"isAsyncDefault", "isAsyncDefault"},
      {"fileMapping", "fileMapping"},
  };
  ExportBench bench;
  model::Model bare;  // has no defaults
  auto& artifact = bare.Create(Symbol("Artifact"));
  auto& application = bare.Apply(artifact, bare.Stereotype("IDLGenerator"));
  artifact.AddEntity(Symbol("ClientDependency"), bare.Create(Symbol("Dependency")));
  for (const auto& [tag, complaint] : settings) {
    EXPECT_THAT(bench.Run(&artifact).pieces,
                ElementsAre(started, internal,
                            "Failed to find value for IDLGenerator::" + complaint, "\n", aborted));
    bare.SetTag(application, Symbol(tag), "out");
  }
  EXPECT_FALSE(std::filesystem::exists("out"));
  EXPECT_EQ(bench.Run(&artifact).Messages(), started + finished);
}

TEST(AgentRun, NamesFilesBySettingsAndTheirFallbacks) {
  struct Case {
    support::Tags settings;
    std::string uri, file;
  };
  const Case cases[] = {
      {{{"fileMapping", "MODULE_DEEP"}}, "", "out/Out.idl"},
      {{{"targetDir", ""}}, "models\\\\bank\\m.uml", "models/bank/Out/Out.idl"},
      {{{"targetDir", ""}, {"fileName", "f"}}, "m.uml", "m.uml/f/f.idl"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.file);
    ExportBench bench;
    auto& artifact = bench.Artifact({&bench.Module("M")}, each.settings);
    bench.Run(&bench.Set(artifact, "Uri", each.uri));
    EXPECT_THAT(support::ReadTree("."), ElementsAre(Pair(each.file, HasSubstr("\nmodule M {"))));
  }
}

TEST(AgentRun, MakesTheDirectoryThatAClimbingPathMeans) {
  ExportBench bench;
  auto& artifact = bench.Artifact({&bench.Module("M")}, {{"targetDir", "../../x"}});
  const std::string missing = "IDL exporter failed to open file ../../x/Out.idl\n";
  EXPECT_EQ(bench.Run(&bench.Set(artifact, "Uri", "p/q/r/m.uml")).Messages(), started + missing);
  EXPECT_TRUE(std::filesystem::is_directory("p/x"));
}

TEST(AgentRun, ReportsAFileThatCannotBeOpenedOnce) {
  ExportBench bench;
  support::WriteFile("./file", "in the way");
  support::WriteFile("tree/A.idl/x", "in the way");
  auto& module = bench.Module("A");
  bench.Struct(module, "S");
  auto& other = bench.Module("B");
  bench.Struct(other, "T");
  EXPECT_EQ(bench.Run(&bench.Artifact({&module}, {{"targetDir", "file/x"}})).Messages(),
            started + "IDL exporter failed to open file file/x/Out.idl\n");
  // A module's file: the run goes on with the next.
  const Exported run = bench.Run(
      &bench.Artifact({&module, &other}, {{"targetDir", "tree"}, {"fileMapping", "MODULE_FLAT"}}));
  EXPECT_THAT(run.Messages(), HasSubstr("IDL exporter failed to open file tree/A.idl\n"));
  EXPECT_THAT(support::ReadFile("tree/B.idl"), HasSubstr("module B {"));
}

TEST(AgentRun, TakesUpWhatTheDependenciesAskFor) {
  ExportBench bench;
  auto& package = bench.Package("P");
  auto& artifact = bench.Artifact({&bench.Module("M"), &package, &bench.Class(package, "C", ""),
                                   &bench.Struct(package, "S"), &bench.Interface(package, "I"),
                                   &bench.Class(package, "K", "CORBAInterface")});
  bench.Depend(artifact, bench.Module("NotManifest"));
  const auto file = [&bench, &package](const char* name, const char* path) -> Element& {
    return bench.Mark(bench.Make(package, "Artifact", name), "IDLFile", {{"file", path}});
  };
  bench.Depend(artifact, file("F", "orb.idl"));
  bench.Manifest(artifact, file("G", "ignored.idl"));
  bench.Make(artifact, "Dependency", "", "", "ClientDependency");
  const Exported run = bench.Run(&artifact);
  EXPECT_EQ(run.Diagnostics(), "Warning - module M is empty\n");
  EXPECT_EQ(run.Body(),
            "\n\n\nmodule M {\n};\n\ninterface I {\n};\n\ninterface K {\n};\n#include \"orb.idl\"");
}

TEST(AgentRun, AbortsForAnIncludeWithoutAFile) {
  ExportBench bench;
  auto& artifact = bench.Artifact({&bench.Module("M")});
  bench.Depend(artifact, bench.Mark(bench.Make(artifact, "Artifact", "F"), "IDLFile"));
  // The warning found before is shown, and its summary has no line end.
  EXPECT_EQ(bench.Run(&artifact).Messages(),
            started + "Warning - module M is empty\nThere were 0 errors and 1 warnings" + internal +
                "Failed to find value for IDLFile::file.\n" + aborted);
}

TEST(AgentRun, SortsAndCountsEachMessageOnce) {
  ExportBench bench;
  auto& module = bench.Module("M");
  auto& interface = bench.Interface(module, "I");
  auto& foreign = bench.Interface(bench.Package("P"), "Foreign");
  bench.Generalize(interface, foreign);
  bench.Generalize(interface, bench.Interface(bench.Package("Q"), "Other"));
  bench.Raises(bench.Operation(interface, "op"), foreign);
  bench.Default(bench.Constant(module, "C", "long", 1), "BooleanValue", "true");
  bench.Struct(module, "Z");
  bench.Struct(module, "A");
  const Exported run = bench.Export({&module});
  EXPECT_EQ(run.Diagnostics(),
            "Warning - struct M::A has no members\n"
            "Warning - struct M::Z has no members\n"
            "Error - a supertype of interfaceM::I is not marked as a CORBA type\n"
            "Error - constant M::C has a value that is not supported\n"
            "Error - operation M::I::op raises an undefined exception Foreign\n");
  EXPECT_THAT(run.Messages(), HasSubstr("\nThere were 3 errors and 2 warnings" + finished));
}

// --- What goes wrong in the host -----------------------------------------------------------------

TEST(AgentRun, ShowsWhatItFoundBeforeTheHostThrew) {
  const std::string unknown = "Error in IDL exporter agent: Unknown exception\n";
  const std::pair<Fault, std::string> faults[] = {
      {Fault::kHostError, "API Error in IDL exporter agent: the model is locked\n"},
      {Fault::kException, unknown},
      {Fault::kOtherThrow, unknown}};
  for (const auto& [fault, text] : faults) {
    ExportBench bench;
    support::WrappingHost host;
    mdk::IMdeEntity* artifact = host.Wrap(&bench.Artifact({&bench.Module("M")}));
    host.FailAt(1, fault);
    EXPECT_EQ(bench.Run(artifact).Messages(), started + text + aborted);
    host.FailAt(0, Fault::kNone);
    bench.Run(artifact);
    // Late, when the tags are removed: what was found is shown once more, and the file is whole.
    host.FailAt(host.Calls(), fault);
    const Exported run = bench.Run(artifact);
    const std::string found = "Warning - module M is empty\nThere were 0 errors and 1 warnings";
    EXPECT_EQ(run.Messages(), started + found + found + text + aborted);
    EXPECT_EQ(run.Body(), "\n\n\nmodule M {\n};");
  }
}

// Nor may the news of the failure bring the host down.
TEST(AgentRun, SurvivesAMessageOutputThatThrows) {
  ExportBench bench;
  model::SetMessageSink([](const std::string&) { throw 42; });
  mdktoidl::RunExport(&bench.Artifact({&bench.Module("M")}));
  model::SetMessageSink({});
}

TEST(AgentRun, IsNotDisturbedByAHostThatAsksForAnotherMeanwhile) {
  ExportBench bench;
  auto& artifact = bench.Artifact({&bench.Module("M")});
  std::string messages;
  model::SetMessageSink([&](const std::string& text) {
    messages += text;
    mdktoidl::RunExport(&artifact);
  });
  mdktoidl::RunExport(&artifact);
  model::SetMessageSink({});
  EXPECT_EQ(messages, bench.Run(&artifact).Messages());
}

// --- What a run leaves behind --------------------------------------------------------------------

TEST(AgentRun, LeavesNothingWhenAborted) {
  ExportBench bench;
  auto& module = bench.Module("M");
  auto& interface = bench.Interface(module, "I");
  bench.Attribute(bench.Struct(module, "S"), "i", interface);
  auto& constant = bench.Constant(module, "C", "long", 1);
  constant.SetEntity(Symbol("DefaultValue"), &bench.Model().Create(Symbol("Ident")));
  EXPECT_EQ(bench.Export({&module}).Messages(),
            started + internal + "Failed to interpret ident correctly\n" + aborted);
  EXPECT_EQ(TagCount(bench), 0u);
  bench.Default(constant, "IntegerValue", "1");

  // The interface is no part of this run, so nothing may be written of it.
  auto& user = bench.Module("User");
  bench.Attribute(bench.Struct(user, "T"), "i", interface);
  EXPECT_EQ(bench.Export({&user}).Diagnostics(),
            "Error - attribute User::T::i has a type that is not marked as a CORBA type or not "
            "included in the generation\n");

  EXPECT_EQ(bench.Export({&module}).Outcome(),
            "\ninterface I {\n};\n\nstruct S {\n    I i;\n};\nconst long C = 1;");
  EXPECT_EQ(TagCount(bench), 0u);
}

TEST(AgentRun, RemovesTagsThatSomebodyElseWroteAndDoesNotFollowThem) {
  ExportBench bench;
  auto& module = bench.Module("M");
  auto& foreign = bench.Struct(bench.Package("P"), "Foreign");
  for (const char* number : {"1", "2", "3", "-1", "0", "99999999999999999999", "no number"}) {
    bench.Mark(foreign, "Node", {{"node", number}});
    bench.Attribute(bench.Struct(module, "S"), "f", foreign);
    EXPECT_THAT(bench.Export({&module}).Diagnostics(), HasSubstr("is not marked as a CORBA type"));
    EXPECT_EQ(TagCount(bench), 0u);
  }
}

TEST(AgentRun, ExportsAModuleTwiceWhenAskedTwice) {
  ExportBench bench;
  auto& module = bench.Module("M");
  bench.Attribute(bench.Struct(module, "S"), "x", "long");
  const std::string block = "\n\nmodule M {\n    \n    struct S {\n        long x;\n    };\n};";
  EXPECT_EQ(bench.Export({&module, &module}).Body(), "\n" + block + block);
}

}  // namespace
