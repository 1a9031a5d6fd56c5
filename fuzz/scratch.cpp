#include "fuzz/scratch.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "agent/export_run.h"
#include "model/model.h"
#include "tests/support/file_tree.h"

namespace fuzz {

void EnterScratchDirectory() {
  constexpr const char* inMemory = "/dev/shm";
  if (std::filesystem::is_directory(inMemory)) setenv("TMPDIR", inMemory, 1);
  static const support::ScratchDirectory directory;
  std::filesystem::current_path(directory.Path());
}

std::string Export(mdk::IMdeEntity& artifact) {
  std::string messages;
  model::SetMessageSink([&messages](const std::string& text) { messages += text; });
  mdktoidl::RunExport(&artifact);
  model::SetMessageSink({});
  const bool isKnown = messages.ends_with("IDL exporter finished.\n") ||
                       messages.ends_with("\nIDL exporter aborted.\n") ||
                       messages.find("IDL exporter failed to open file ") != messages.npos;
  if (!isKnown) Fail("a run ends with: " + messages);
  return messages;
}

void Fail(const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
  std::abort();
}

}  // namespace fuzz
