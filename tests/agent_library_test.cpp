// The built agent as a host gets to see it: a library with two entries and few needs.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "model/model.h"
#include "tests/support/message_log.h"
#include "tests/support/process.h"

namespace {

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

TEST(AgentLibrary, ExportsAModelThroughItsEntries) {
  void* const library = dlopen(IDLEXPORT_AGENT, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  const auto exported = [library](mdk::IMdeEntity* artifact) {
    const support::MessageLog log;
    reinterpret_cast<void (*)()>(dlsym(library, "SetPortSymbol"))();
    reinterpret_cast<void (*)(void*, void*, mdk::IMdeEntity*)>(dlsym(library, "CORBAIDLExporter"))(
        nullptr, nullptr, artifact);
    return log.Text();
  };
  EXPECT_EQ(exported(nullptr), "");

  model::Model model;
  model::Element& artifact = model.Create(Symbol("Artifact"));
  EXPECT_EQ(exported(&artifact),
            "\nIDL exporter started...\n"
            "IDL exporter failed to find root element to export.\n"
            "\nIDL exporter aborted.\n");

  // Two runs in one process: the first must leave nothing behind that changes the second.
  artifact.AddEntity(Symbol("ClientDependency"), model.Create(Symbol("Dependency")));
  const std::string refused =
      "\nIDL exporter started...\n"
      "Internal error in IDL exporter agent: Failed to find value for IDLGenerator::targetDir.\n"
      "\nIDL exporter aborted.\n";
  EXPECT_EQ(exported(&artifact), refused);
  EXPECT_EQ(exported(&artifact), refused);
  dlclose(library);
}

}  // namespace
