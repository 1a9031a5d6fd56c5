// A host that fails, forgets or talks nonsense at any one call: the agent has to survive each, say
// what happened, and be as good as new in the next run.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

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
const std::string unknown = "Error in IDL exporter agent: Unknown exception\n" + aborted;

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

  /// A run that failed leaves at most its tags, and the next doesn't notice.
  void ExpectNothingLeft() {
    EXPECT_EQ(support::Snapshot({&artifact_}, support::Omit::kNodeTags), before_);
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

/// Every run after a failed one starts from the tags that were left; a run without a fault in
/// between is checked now and then.
constexpr std::size_t checkEvery = 50;

/// Whatever was written of the files, they have their feet.
void ExpectClosed(const Exported& run) {
  for (const auto& [name, text] : run.files) {
    EXPECT_THAT(text.substr(0, text.find_last_not_of(" \n") + 1), EndsWith("#endif")) << name;
  }
}

void ExpectAbortWherever(Fault fault, const std::string& ending) {
  FaultyHost rig("ONE_FILE");
  for (std::size_t call = 1; call <= rig.Calls() && !testing::Test::HasFailure(); call += stride) {
    SCOPED_TRACE("call " + std::to_string(call));
    const Exported run = rig.RunWithFault(call, fault);
    EXPECT_THAT(run.Messages(), StartsWith(started));
    EXPECT_THAT(run.Messages(), EndsWith(ending));
    ExpectClosed(run);
    if (call % checkEvery < stride) rig.ExpectNothingLeft();
  }
}

TEST(AgentHostFault, EveryFailedCallIsReportedInTheHostsWords) {
  ExpectAbortWherever(Fault::kHostError, "API Error in IDL exporter agent: " +
                                             std::string(support::WrappingHost::kErrorText) + "\n" +
                                             aborted);
}

TEST(AgentHostFault, EveryExceptionEndsTheRunAndNothingMore) {
  ExpectAbortWherever(Fault::kException, unknown);
}

TEST(AgentHostFault, EveryOtherThrownThingEndsTheRunAndNothingMore) {
  ExpectAbortWherever(Fault::kOtherThrow, unknown);
}

TEST(AgentHostFault, ExceptionsWhileModulesGetFilesOfTheirOwnLeaveWholeFiles) {
  FaultyHost rig("MODULE_STRUCTURED");
  for (std::size_t call = 1; call <= rig.Calls() && !HasFailure(); call += stride) {
    SCOPED_TRACE("call " + std::to_string(call));
    const Exported run = rig.RunWithFault(call, Fault::kBadAllocation);
    EXPECT_THAT(run.Messages(), EndsWith(unknown));
    ExpectClosed(run);
    if (call % checkEvery < stride) rig.ExpectNothingLeft();
  }
  rig.ExpectNothingLeft();
}

/// An answer that makes no sense may end a run in any of the ways in which runs end.
void ExpectSomeEnd(FaultyHost& rig, std::size_t call, Fault fault, bool andAfter) {
  SCOPED_TRACE("call " + std::to_string(call));
  const std::string messages = rig.RunWithFault(call, fault, andAfter).Messages();
  EXPECT_THAT(messages, StartsWith(started));
  const bool isKnown = messages.ends_with(finished) || messages.ends_with(aborted) ||
                       messages.find("IDL exporter failed to open file ") != messages.npos;
  EXPECT_TRUE(isKnown) << messages;
  if (call % checkEvery < stride) rig.ExpectNothingLeft();
}

void ExpectSomeEndWherever(Fault fault, bool andAfter) {
  for (const char* mapping : {"ONE_FILE", "MODULE_STRUCTURED"}) {
    FaultyHost rig(mapping);
    for (std::size_t call = 1; call <= rig.Calls() && !testing::Test::HasFailure();
         call += stride) {
      ExpectSomeEnd(rig, call, fault, andAfter);
    }
    rig.ExpectNothingLeft();
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
