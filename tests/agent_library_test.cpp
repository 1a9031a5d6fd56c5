// The built agent as a host gets to see it: a library with two entries and few needs.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "command/artifact_choice.h"
#include "host/model_access.h"
#include "model/model.h"
#include "tests/support/examples.h"
#include "tests/support/file_tree.h"
#include "tests/support/message_log.h"
#include "tests/support/process.h"
#include "xmi/reader.h"

namespace {

namespace fs = std::filesystem;
using model::Symbol;
using testing::Each;
using testing::MatchesRegex;
using testing::UnorderedElementsAre;

/// The lines that a program writes.
std::vector<std::string> LinesOf(const std::vector<std::string>& command) {
  const support::ProcessResult result = support::RunProcess(command);
  EXPECT_EQ(result.status, 0) << result.errors;
  std::vector<std::string> lines;
  std::istringstream stream(result.output);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

TEST(AgentLibrary, ExportsItsTwoEntriesAndNothingElse) {
  std::vector<std::string> symbols;
  for (const std::string& line :
       LinesOf({"nm", "--dynamic", "--defined-only", "--format=posix", IDLEXPORT_AGENT})) {
    symbols.push_back(line.substr(0, line.find(' ')));
  }
  EXPECT_THAT(symbols, UnorderedElementsAre("CORBAIDLExporter", "SetPortSymbol"));
}

TEST(AgentLibrary, NeedsTheLanguagesRuntimeOnly) {
  std::vector<std::string> libraries;
  for (const std::string& line : LinesOf({"readelf", "--dynamic", "--wide", IDLEXPORT_AGENT})) {
    if (line.find("(NEEDED)") == line.npos) continue;
    const auto begin = line.find('[') + 1;
    libraries.push_back(line.substr(begin, line.find(']') - begin));
  }
  // The sanitizers' libraries belong to the builds with checks.
  EXPECT_THAT(libraries, Each(MatchesRegex("(libstdc\\+\\+|libm|libgcc_s|libc|ld-linux-.*"
                                           "|libasan|libubsan)\\.so(\\..*)?")));
}

/// The library in this process, which is its host: it finds the model API here.
class LoadedAgent {
 public:
  LoadedAgent() : library_(dlopen(IDLEXPORT_AGENT, RTLD_NOW | RTLD_LOCAL)) {
    EXPECT_NE(library_, nullptr) << dlerror();
  }
  ~LoadedAgent() { dlclose(library_); }
  LoadedAgent(const LoadedAgent&) = delete;
  LoadedAgent& operator=(const LoadedAgent&) = delete;

  /// Exports and returns what the agent says.
  std::string Export(mdk::IMdeEntity* artifact) const {
    const support::MessageLog log;
    reinterpret_cast<void (*)()>(dlsym(library_, "SetPortSymbol"))();
    reinterpret_cast<void (*)(void*, void*, mdk::IMdeEntity*)>(dlsym(library_, "CORBAIDLExporter"))(
        nullptr, nullptr, artifact);
    return log.Text();
  }

 private:
  void* library_;
};

TEST(AgentLibrary, SaysWhatIsMissingAndKeepsNothing) {
  const LoadedAgent agent;
  EXPECT_EQ(agent.Export(nullptr), "");

  model::Model model;
  model::Element& artifact = model.Create(Symbol("Artifact"));
  EXPECT_EQ(agent.Export(&artifact),
            "\nIDL exporter started...\n"
            "IDL exporter failed to find root element to export.\n"
            "\nIDL exporter aborted.\n");

  // Two runs in one process: the first must leave nothing behind that changes the second.
  artifact.AddEntity(Symbol("ClientDependency"), model.Create(Symbol("Dependency")));
  const std::string refused =
      "\nIDL exporter started...\n"
      "Internal error in IDL exporter agent: Failed to find value for IDLGenerator::targetDir.\n"
      "\nIDL exporter aborted.\n";
  EXPECT_EQ(agent.Export(&artifact), refused);
  EXPECT_EQ(agent.Export(&artifact), refused);
}

class AgentLibraryOnExamples : public testing::TestWithParam<fs::path> {};

// The command is made from the same sources, but it is not the same program.
TEST_P(AgentLibraryOnExamples, WritesAndSaysWhatTheCommandDoes) {
  const LoadedAgent agent;
  model::Model model;
  xmi::Reader reader(model);
  reader.Read(GetParam());
  for (model::Element* artifact : command::ExportableArtifacts(reader)) {
    const std::string name = command::NameOf(reader, *artifact);
    SCOPED_TRACE(name);
    const support::ScratchDirectory scratch;
    const support::ProcessResult byCommand = support::RunProcess(
        {IDLEXPORT_COMMAND, "-a", name, "-o", "command", GetParam().string()}, scratch.Path());
    EXPECT_EQ(byCommand.status, 0) << byCommand.errors;
    artifact->SetExpression("IDLGenerator (. targetDir .)", "library", 1, mdkdll::defaultChanger);
    const fs::path before = fs::current_path();
    fs::current_path(scratch.Path());
    EXPECT_EQ(agent.Export(artifact), byCommand.output);
    fs::current_path(before);
    fs::remove(scratch.Path() / "command/.idlexport");
    EXPECT_EQ(support::ReadTree(scratch.Path() / "library"),
              support::ReadTree(scratch.Path() / "command"));
  }
}

INSTANTIATE_TEST_SUITE_P(Top, AgentLibraryOnExamples,
                         testing::ValuesIn(support::ModelsIn("examples")), support::NameOfModel());
INSTANTIATE_TEST_SUITE_P(Guide, AgentLibraryOnExamples,
                         testing::ValuesIn(support::ModelsIn("examples/modelling")),
                         support::NameOfModel());

}  // namespace
