// A host that fails, forgets or talks nonsense at any one call: the agent has to survive each, say
// what happened, and be as good as new in the next run.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "tests/support/export.h"
#include "tests/support/rich_model.h"
#include "tests/support/snapshot.h"
#include "tests/support/wrapping_host.h"

namespace {

using model::Element;
using support::Exported;
using support::Fault;
using testing::EndsWith;
using testing::StartsWith;

const std::string started = "\nIDL exporter started...\n";
const std::string finished = "IDL exporter finished.\n";
const std::string aborted = "\nIDL exporter aborted.\n";

/// A model behind a host that can fail, and what a run gives as long as it doesn't.
class FaultyHost {
 public:
  explicit FaultyHost(std::string_view fileMapping)
      : artifact_(support::BuildRichModel(bench_, fileMapping)),
        entry_(host_.Wrap(&artifact_)),
        before_(support::Snapshot({&artifact_})) {
    host_.FailAt(0, Fault::kNone);
    whole_ = bench_.Run(entry_);
    calls_ = host_.Calls();
    EXPECT_THAT(whole_.Messages(), EndsWith(finished));
    EXPECT_THAT(whole_.pieces, testing::Contains("There were 0 errors and 3 warnings"));
  }

  std::size_t Calls() const { return calls_; }

  Exported RunWithFault(std::size_t call, Fault fault, bool andAfter = false) {
    host_.FailAt(call, fault, andAfter);
    Exported result = bench_.Run(entry_);
    host_.FailAt(0, Fault::kNone);
    return result;
  }

  /// A run that failed leaves nothing in the model, and the next doesn't notice.
  void ExpectNothingLeft() {
    EXPECT_EQ(support::Snapshot({&artifact_}), before_);
    const Exported again = bench_.Run(entry_);
    EXPECT_EQ(again.pieces, whole_.pieces);
    EXPECT_EQ(again.files, whole_.files);
    EXPECT_EQ(support::Snapshot({&artifact_}), before_);
  }

 private:
  support::ExportBench bench_;
  Element& artifact_;
  support::WrappingHost host_;
  mdk::IMdeEntity* entry_;
  std::string before_;
  Exported whole_;
  std::size_t calls_ = 0;
};

#ifdef __OPTIMIZE__
constexpr std::size_t stride = 1;
#else
constexpr std::size_t stride = 5;  // unoptimised and checked code takes its time
#endif

/// A run without a fault in between is checked now and then.
constexpr std::size_t checkEvery = 50;

/// Runs with a fault at each call; `check` judges what the run comes to.
template <typename Check>
void FailWherever(const char* mapping, Fault fault, bool andAfter, Check check) {
  FaultyHost rig(mapping);
  for (std::size_t call = 1; call <= rig.Calls() && !testing::Test::HasFailure(); call += stride) {
    SCOPED_TRACE("call " + std::to_string(call));
    const Exported run = rig.RunWithFault(call, fault, andAfter);
    EXPECT_THAT(run.Messages(), StartsWith(started));
    check(run);
    if (call % checkEvery < stride) rig.ExpectNothingLeft();
  }
  rig.ExpectNothingLeft();
}

TEST(AgentHostFault, EveryFailedCallEndsTheRunAndLeavesWholeFiles) {
  const std::string hostError =
      "API Error in IDL exporter agent: " + std::string(support::WrappingHost::kErrorText) + "\n" +
      aborted;
  const std::string unknown = "Error in IDL exporter agent: Unknown exception\n" + aborted;
  const std::tuple<const char*, Fault, std::string> cases[] = {
      {"ONE_FILE", Fault::kHostError, hostError},
      {"ONE_FILE", Fault::kException, unknown},
      {"ONE_FILE", Fault::kOtherThrow, unknown},
      {"MODULE_STRUCTURED", Fault::kBadAllocation, unknown}};
  for (const auto& [mapping, fault, ending] : cases) {
    FailWherever(mapping, fault, false, [&ending = ending](const Exported& run) {
      EXPECT_THAT(run.Messages(), EndsWith(ending));
      for (const auto& [name, text] : run.files) {
        EXPECT_THAT(text.substr(0, text.find_last_not_of(" \n") + 1), EndsWith("#endif")) << name;
      }
    });
  }
}

/// An answer that makes no sense may end a run in any of the ways in which runs end.
void ExpectSomeEndWherever(Fault fault, bool andAfter) {
  for (const char* mapping : {"ONE_FILE", "MODULE_STRUCTURED"}) {
    FailWherever(mapping, fault, andAfter, [](const Exported& run) {
      const std::string messages = run.Messages();
      const bool isKnown = messages.ends_with(finished) || messages.ends_with(aborted) ||
                           messages.find("IDL exporter failed to open file ") != messages.npos;
      EXPECT_TRUE(isKnown) << messages;
    });
  }
}

TEST(AgentHostFault, NoMissingAnswerBringsTheAgentDown) {
  ExpectSomeEndWherever(Fault::kNull, false);
}

TEST(AgentHostFault, AHostThatFallsSilentDoesNotBringTheAgentDown) {
  ExpectSomeEndWherever(Fault::kNull, true);
}

TEST(AgentHostFault, NoWrongAnswerBringsTheAgentDown) {
  ExpectSomeEndWherever(Fault::kNonsense, false);
}

TEST(AgentHostFault, AHostThatTurnsToNonsenseDoesNotBringTheAgentDown) {
  ExpectSomeEndWherever(Fault::kNonsense, true);
}

}  // namespace
