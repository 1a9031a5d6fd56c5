// Models that the agent is given directly: most make no sense, some are correct.
#include <cstdint>
#include <span>

#include "fuzz/scratch.h"
#include "tests/support/choices.h"
#include "tests/support/snapshot.h"
#include "tests/support/valid_model.h"
#include "tests/support/wild_model.h"

namespace {

using support::Choices;

void ExportWild(Choices& choices) {
  model::Model model;
  model::Element& artifact = support::GenerateWildModel(model, choices);
  const std::string before = support::Snapshot({&artifact});
  const std::string withoutTags = support::Snapshot({&artifact}, support::Omit::kNodeTags);
  const std::string messages = fuzz::Export(artifact);
  const bool isFinished = messages.ends_with("IDL exporter finished.\n");
  const std::string& expected = isFinished ? withoutTags : before;
  if (support::Snapshot({&artifact}) != expected) fuzz::Fail("the model has changed");
  if (fuzz::Export(artifact) != messages) fuzz::Fail("the second run says something else");
}

void ExportCorrect(Choices& choices) {
  support::ModelBuilder builder;
  const support::ValidModel model = support::GenerateValidModel(builder, choices);
  support::Element& artifact = builder.Generator("Out", {{"targetDir", "out"}});
  for (support::Element* module : model.modules) builder.Manifest(artifact, *module);
  support::ShuffleMembers(model, choices);
  const std::string messages = fuzz::Export(artifact);
  if (messages.find("Error - ") != messages.npos) fuzz::Fail("refused: " + messages);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::EnterScratchDirectory();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Choices choices(std::span(data, size));
  if (choices.Chance(80)) {
    ExportWild(choices);
  } else {
    ExportCorrect(choices);
  }
  return 0;
}
