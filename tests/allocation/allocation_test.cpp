// Memory that runs out at any one allocation of a run, in the agent or in the host that it asks.
//
// An executable of its own, because it replaces the operators that allocate.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <new>
#include <string>

#include "agent/export_run.h"
#include "tests/support/export.h"
#include "tests/support/rich_model.h"
#include "tests/support/snapshot.h"

namespace {

struct Supply {
  bool isWatched = false;
  bool isGoneForGood = false;
  std::size_t taken = 0;
  std::size_t failing = 0;  // the number of the allocation that fails; 0 for none

  bool Refuses() {
    if (!isWatched) return false;
    ++taken;
    return failing != 0 && (taken == failing || (isGoneForGood && taken > failing));
  }
};

Supply supply;

}  // namespace

void* operator new(std::size_t size) {
  void* memory = supply.Refuses() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

// Who asks so does without when there is none, as sorting does.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

namespace fs = std::filesystem;
using model::Element;

const std::string finished = "IDL exporter finished.\n";
const std::string unknown =
    "Error in IDL exporter agent: Unknown exception\n\nIDL exporter aborted.\n";

class Rig {
 public:
  Rig() : artifact_(support::BuildRichModel(bench_, "MODULE_FLAT")) {
    messages_.reserve(1 << 16);  // so that listening takes no memory
    Run(0, false);               // what is made once in a process is there from now on
    before_ = support::Snapshot({&artifact_});
    allocations_ = Run(0, false);
    whole_ = messages_;
    files_ = support::ReadTree("out");
    EXPECT_TRUE(whole_.ends_with(finished));
  }
  ~Rig() { model::SetMessageSink({}); }

  std::size_t Allocations() const { return allocations_; }
  const std::string& Messages() const { return messages_; }

  /// Returns how many allocations there were.
  std::size_t Run(std::size_t failing, bool isGoneForGood) {
    fs::remove_all("out");
    messages_.clear();
    model::SetMessageSink([this](const std::string& text) { messages_ += text; });
    supply = {true, isGoneForGood, 0, failing};
    mdktoidl::RunExport(&artifact_);
    supply.isWatched = false;
    return supply.taken;
  }

  bool IsWhole() const { return messages_ == whole_ && support::ReadTree("out") == files_; }

  void ExpectNothingLeft() {
    EXPECT_EQ(support::Snapshot({&artifact_}), before_);
    Run(0, false);
    EXPECT_TRUE(IsWhole()) << messages_;
    EXPECT_EQ(support::Snapshot({&artifact_}), before_);
  }

 private:
  support::ExportBench bench_;
  Element& artifact_;
  std::string messages_;
  std::string before_;
  std::string whole_;
  std::map<std::string, std::string> files_;
  std::size_t allocations_ = 0;
};

#ifdef __OPTIMIZE__
constexpr std::size_t stride = 1;
#else
constexpr std::size_t stride = 5;  // unoptimised and checked code takes its time
#endif

/// A whole run between those that fail is checked now and then.
constexpr std::size_t checkEvery = 50;

TEST(Allocation, ThatFailsEndsTheRunAndNothingMore) {
  Rig rig;
  for (const bool isGoneForGood : {false, true}) {
    for (std::size_t failing = 1; failing <= rig.Allocations() && !HasFailure();
         failing += stride) {
      SCOPED_TRACE("allocation " + std::to_string(failing));
      rig.Run(failing, isGoneForGood);
      EXPECT_TRUE(isGoneForGood || rig.Messages().ends_with(unknown)) << rig.Messages();
      if (failing % checkEvery < stride) rig.ExpectNothingLeft();
    }
  }
}

}  // namespace
