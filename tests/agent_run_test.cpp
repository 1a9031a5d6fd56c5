// A run of the agent as a whole: its phases and messages, its settings, and what it leaves behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <list>
#include <stdexcept>
#include <string>
#include <vector>

#include "agent/export_run.h"
#include "model/api_error.h"
#include "model/model.h"
#include "tests/support/export.h"
#include "tests/support/message_log.h"

namespace {

using model::Element;
using model::Symbol;
using support::ExportBench;
using support::Exported;
using support::OutcomeCase;
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

TEST(AgentRun, PrintsItsPhasesPieceByPiece) {
  ExportBench bench;
  auto& module = bench.Module("M");
  bench.Struct(module, "Empty");
  bench.Attribute(bench.Struct(module, "Typed"), "x", "");
  EXPECT_THAT(bench.Export({&module}).pieces,
              ElementsAre(started, "Warning - ", "struct M::Empty has no members", "\n", "Error - ",
                          "attribute M::Typed::x has a type that could not be identified", "\n",
                          "There were 1 errors and 1 warnings", finished));
}

TEST(AgentRun, SaysNothingWithoutAnElementOrAnOutput) {
  ExportBench bench;
  EXPECT_THAT(bench.Run(nullptr).pieces, IsEmpty());
  mdktoidl::RunExport(&bench.Artifact({&bench.Module("M")}));
  EXPECT_TRUE(std::filesystem::is_empty(bench.Directory()));
}

TEST(AgentRun, StopsBeforeItsSettingsWithoutDependencies) {
  ExportBench bench;
  auto& artifact = bench.Model().Create(Symbol("Artifact"));
  EXPECT_THAT(
      bench.Run(&artifact).pieces,
      ElementsAre(started, "IDL exporter failed to find root element to export.\n", aborted));
  EXPECT_FALSE(std::filesystem::exists("out"));
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
      {{}, "", "out/Out.idl"},
      {{{"fileName", "bank"}, {"fileSuffix", "_v2"}}, "", "out/bank_v2.idl"},
      {{{"targetDir", "a\\b//c/"}}, "", "a/b/c/Out.idl"},
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

TEST(AgentRun, WritesOnlyHeadAndFootWhenThereAreErrors) {
  ExportBench bench;
  auto& module = bench.Module("M");
  bench.Attribute(bench.Struct(module, "S"), "x", "");
  EXPECT_EQ(bench.Export({&module}).Body(), "");
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

/// An artifact that hands everything on to a real one, but fails when it is asked for something.
class FailingArtifact final : public mdk::IMdeEntity {
 public:
  FailingArtifact(Element& real, std::string where, std::function<void()> fail)
      : real_(real), where_(std::move(where)), fail_(std::move(fail)) {}

  void QueryInterface(const mdk::InterfaceId& id, void** result) override {
    real_.QueryInterface(id, result);
  }
  std::string GetValue(const std::string& property, int flag) override {
    return Check(property), real_.GetValue(property, flag);
  }
  mdk::IMdeEntity* GetEntity(const std::string& property, int flag) override {
    return Check(property), real_.GetEntity(property, flag);
  }
  void GetEntities(const std::string& property, std::list<mdk::IMdeEntity*>& result) override {
    Check(property), real_.GetEntities(property, result);
  }
  mdk::IMdeEntity* GetTarget(const std::string& property, int flag) override {
    return real_.GetTarget(property, flag);
  }
  std::string GetMetaclass() override { return real_.GetMetaclass(); }
  void GetReferrers(const std::string& property, std::list<mdk::IMdeEntity*>& result) override {
    real_.GetReferrers(property, result);
  }
  mdk::IMdeEntity* EvalExpression(const std::string& expression, int flag) override {
    return Check(expression), real_.EvalExpression(expression, flag);
  }
  bool IsKindOf(const std::string& metaclass) override { return real_.IsKindOf(metaclass); }
  void AddEntity(const std::string& property, mdk::DefinitionRef definition, int flag,
                 mdk::Changer& changer) override {
    static_cast<mdk::IMdeEntity&>(real_).AddEntity(property, definition, flag, changer);
  }
  void SetExpression(const std::string& expression, const std::string& value, int flag,
                     mdk::Changer& changer) override {
    real_.SetExpression(expression, value, flag, changer);
  }
  mdk::DefinitionRef GetDefinitionRef() override { return real_.GetDefinitionRef(); }
  void Delete(mdk::Changer& changer) override { real_.Delete(changer); }
  bool HasStereotype(const std::string& stereotype, int flag) override {
    return real_.HasStereotype(stereotype, flag);
  }

 private:
  void Check(const std::string& asked) {
    if (asked == where_) fail_();
  }

  Element& real_;
  std::string where_;
  std::function<void()> fail_;
};

TEST(AgentRun, ReportsWhateverTheHostThrows) {
  const std::pair<std::function<void()>, std::string> failures[] = {
      {[] { model::Fail("the model is locked"); },
       "API Error in IDL exporter agent: the model is locked\n"},
      {[] { throw std::runtime_error("hidden"); },
       "Error in IDL exporter agent: Unknown exception\n"},
      {[] { throw 42; }, "Error in IDL exporter agent: Unknown exception\n"},
  };
  for (const auto& [fail, text] : failures) {
    ExportBench bench;
    auto& artifact = bench.Artifact({&bench.Module("M")});
    FailingArtifact early(artifact, "IDLGenerator (. fileMapping .)", fail);
    EXPECT_EQ(bench.Run(&early).Messages(), started + text + aborted);
    // Late, when the tags are removed: what was found is shown once more, and the file is whole.
    const std::string found = "Warning - module M is empty\nThere were 0 errors and 1 warnings";
    FailingArtifact late(artifact, "Session", fail);
    const Exported run = bench.Run(&late);
    EXPECT_EQ(run.Messages(), started + found + found + text + aborted);
    EXPECT_EQ(run.Body(), "\n\n\nmodule M {\n};");
    // A message output that fails, even for the news of the failure, must not bring the host down.
    model::SetMessageSink([&fail = fail](const std::string&) { fail(); });
    mdktoidl::RunExport(&artifact);
    model::SetMessageSink({});
  }
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

/// Builds a module whose evaluation is aborted after the tree was built, by a constant that names
/// nothing; returns the constant.
Element& BuildAbortingModule(ExportBench& bench, Element& module) {
  auto& user = bench.Struct(module, "S");
  bench.Attribute(user, "i", bench.Interface(module, "I"));
  auto& constant = bench.Constant(module, "C", "long", 1);
  constant.SetEntity(Symbol("DefaultValue"), &bench.Model().Create(Symbol("Ident")));
  return constant;
}

TEST(AgentRun, LeavesTheModelAsItFoundIt) {
  ExportBench bench;
  auto& module = bench.Module("M");
  bench.Attribute(bench.Struct(module, "S"), "x", "long");
  auto& artifact = bench.Artifact({&module});
  const Exported first = bench.Run(&artifact);
  EXPECT_EQ(TagCount(bench), 0u);
  EXPECT_EQ(module.Entities(Symbol("StereotypeInstance")).size(), 1u);
  const Exported second = bench.Run(&artifact);
  EXPECT_EQ(first.files, second.files);
  EXPECT_EQ(first.pieces, second.pieces);
}

TEST(AgentRun, LeavesNothingWhenAborted) {
  ExportBench bench;
  auto& module = bench.Module("M");
  auto& constant = BuildAbortingModule(bench, module);
  EXPECT_EQ(bench.Export({&module}).Messages(),
            started + internal + "Failed to interpret ident correctly\n" + aborted);
  EXPECT_EQ(TagCount(bench), 0u);
  bench.Default(constant, "IntegerValue", "1");

  // The interface is no part of this run, so nothing may be written of it.
  auto& user = bench.Module("User");
  bench.Attribute(bench.Struct(user, "T"), "i", *module.Entities(Symbol("OwnedMember"))[1]);
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
