#include "command/run.h"

#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

#include "command/agent_library.h"
#include "command/artifact_choice.h"
#include "command/failure.h"
#include "command/message_sink.h"
#include "command/options.h"
#include "command/remarks.h"
#include "command/standard_output.h"
#include "command/target_directory.h"
#include "model/model.h"
#include "xmi/reader.h"

namespace command {
namespace {

void Complain(const std::string& text) { std::fprintf(stderr, "idlexport: %s\n", text.c_str()); }

ExitStatus List(const xmi::Reader& reader, StandardOutput& output) {
  for (const model::Element* artifact : ExportableArtifacts(reader)) {
    output.Write(NameOf(reader, *artifact) + "\n");
  }
  return kSuccess;
}

ExitStatus Export(model::Element& artifact, const Options& options, StandardOutput& output) {
  const AgentLibrary agent;
  PrepareTargetDirectory(artifact, options.output);
  MessageSink sink(output);
  model::SetMessageSink([&sink](const std::string& piece) { sink.Print(piece); });
  agent.Export(artifact);
  model::SetMessageSink({});
  return sink.ExportFailed() ? kExportFailed : kSuccess;
}

ExitStatus DoWhatIsAsked(const Options& options, StandardOutput& output) {
  if (!options.information.empty()) {
    output.Write(options.information);
    return kSuccess;
  }
  model::Model model;
  xmi::Reader reader(model);
  reader.Read(options.model);
  PrintRemarks(reader);
  if (options.list) return List(reader, output);
  return Export(ChooseArtifact(reader, options.artifact), options, output);
}

ExitStatus TryWhatIsAsked(int argc, const char* const* argv, StandardOutput& output) {
  try {
    return DoWhatIsAsked(ParseOptions(argc, argv), output);
  } catch (const Failure& failure) {
    Complain(failure.what());
    return failure.Status();
  } catch (const std::exception& error) {
    Complain(error.what());
    return kBadInput;
  }
}

}  // namespace

int Run(int argc, const char* const* argv) {
  FillClosedStandardStreams();
  StandardOutput output;
  const ExitStatus status = TryWhatIsAsked(argc, argv, output);
  const int error = output.Finish();
  if (error == 0) return status;
  Complain(std::string("can't write to standard output: ") + std::strerror(error));
  return status == kSuccess ? kExportFailed : status;
}

}  // namespace command
