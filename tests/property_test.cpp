// What holds for every model, tried on models that are made up from seeds.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include "tests/support/choices.h"
#include "tests/support/export.h"
#include "tests/support/process.h"
#include "tests/support/snapshot.h"
#include "tests/support/valid_model.h"
#include "tests/support/wild_model.h"

namespace {

using model::Element;
using support::Choices;
using support::ExportBench;
using support::Exported;
using support::Omit;
using support::Snapshot;

const std::string finished = "IDL exporter finished.\n";
const std::string aborted = "\nIDL exporter aborted.\n";

#ifdef __OPTIMIZE__
constexpr std::uint64_t wildModels = 3'000;
constexpr std::uint64_t validModels = 10;
#else
constexpr std::uint64_t wildModels = 400;  // unoptimised and checked code takes its time
constexpr std::uint64_t validModels = 3;
#endif

/// How many models are tried; another number of them when somebody wants to be thorough.
std::uint64_t Count(std::uint64_t usual) {
  const char* wanted = std::getenv("IDLEXPORT_PROPERTY_MODELS");
  return wanted == nullptr ? usual : std::strtoull(wanted, nullptr, 10);
}

/// The lines of one severity, each once and in order?
void ExpectSortedOnce(const Exported& run) {
  for (const char* heading : {"Warning - ", "Error - "}) {
    std::vector<std::string> texts;
    for (std::size_t piece = 0; piece + 1 < run.pieces.size(); ++piece) {
      if (run.pieces[piece] == heading) texts.push_back(run.pieces[piece + 1]);
    }
    EXPECT_TRUE(std::is_sorted(texts.begin(), texts.end())) << run.Messages();
    EXPECT_EQ(std::set<std::string>(texts.begin(), texts.end()).size(), texts.size());
  }
}

void ExpectSame(const Exported& run, const Exported& other) {
  EXPECT_EQ(run.pieces, other.pieces);
  EXPECT_EQ(run.files, other.files);
}

TEST(PropertyOfAnyModel, ARunEndsKnownlyRepeatablyAndLeavesTheModelAlone) {
  const std::uint64_t count = Count(wildModels);
  std::size_t finishedRuns = 0;
  for (std::uint64_t seed = 1; seed <= count && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    ExportBench bench;
    Choices choices(seed);
    Element& artifact = support::GenerateWildModel(bench.Model(), choices);
    const std::string before = Snapshot({&artifact});
    const std::string withoutTags = Snapshot({&artifact}, Omit::kNodeTags);
    const Exported run = bench.Run(&artifact);
    const std::string messages = run.Messages();
    ExpectSortedOnce(run);
    if (messages.ends_with(finished)) {
      ++finishedRuns;
      EXPECT_EQ(Snapshot({&artifact}), withoutTags);
    } else {
      EXPECT_TRUE(messages.ends_with(aborted)) << messages;
      EXPECT_EQ(Snapshot({&artifact}), before);
    }
    ExpectSame(run, bench.Run(&artifact));
    // The same model at other places in memory.
    ExportBench otherBench;
    Choices sameChoices(seed);
    ExpectSame(run, otherBench.Run(&support::GenerateWildModel(otherBench.Model(), sameChoices)));
  }
  EXPECT_GT(finishedRuns, count / 4) << "the models are too wild to tell anything";
}

TEST(PropertyOfCorrectModels, AnyOrderOfDeclarationsGivesIdlThatCompiles) {
  const std::uint64_t count = Count(validModels);
  for (std::uint64_t seed = 1; seed <= count && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    ExportBench bench;
    Choices choices(seed);
    const support::ValidModel model = support::GenerateValidModel(bench, choices);
    Element& artifact = bench.Artifact({});
    for (Element* module : model.modules) bench.Manifest(artifact, *module);
    for (int order = 0; order < 3; ++order) {
      SCOPED_TRACE("order " + std::to_string(order));
      if (order > 0) support::ShuffleMembers(model, choices);
      const Exported run = bench.Run(&artifact);
      EXPECT_EQ(run.Messages().find("Error - "), std::string::npos) << run.Messages();
      const auto judged = support::RunProcess({IDLEXPORT_OMNIIDL, "-bdump", "out/Out.idl"});
      EXPECT_EQ(judged.status, 0) << judged.errors << run.Body();
    }
  }
}

}  // namespace
