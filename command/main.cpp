// The whole command: read a model, choose an artifact, export it.
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

#include "command/export_session.h"
#include "command/options.h"
#include "command/progress.h"
#include "command/report.h"
#include "command/standard_output.h"
#include "placement/failure.h"
#include "placement/interruption.h"

namespace command {
namespace {

using placement::ExitStatus;
using placement::Failure;
using placement::kBadInput;
using placement::kExportFailed;
using placement::kSuccess;

void Complain(const std::string& text) { std::fprintf(stderr, "idlexport: %s\n", text.c_str()); }

ExitStatus RunSession(const Options& options, Report& report, Progress& progress) {
  try {
    return ExportSession(options, report, progress).Run();
  } catch (const Failure& failure) {
    report.Fail(failure.what());
    return failure.Status();
  } catch (const xmi::ReadError& error) {
    report.FailToRead(error);
    return kBadInput;
  } catch (const std::exception& error) {
    report.Fail(error.what());
    return kExportFailed;
  }
}

ExitStatus DoWhatIsAsked(const Options& options, StandardOutput& output) {
  if (!options.information.empty()) {
    output.Write(options.information);
    return kSuccess;
  }
  Progress progress(!options.quiet && IsTerminal());
  Report report(options, output, progress);
  const ExitStatus status = RunSession(options, report, progress);
  report.Finish();
  return status;
}

ExitStatus TryWhatIsAsked(int argc, const char* const* argv, StandardOutput& output) {
  try {
    return DoWhatIsAsked(ParseOptions(argc, argv), output);
  } catch (const Failure& failure) {
    Complain(failure.what());
    return failure.Status();
  }
}

/// Does what the command line asks for; returns the exit status. Throws nothing.
int Run(int argc, const char* const* argv) {
  FillClosedStandardStreams();
  placement::WatchForInterruption();
  StandardOutput output;
  const ExitStatus status = TryWhatIsAsked(argc, argv, output);
  const int error = output.Finish();
  if (error == 0) return status;
  Complain(std::string("can't write to standard output: ") + std::strerror(error));
  return status == kSuccess ? kExportFailed : status;
}

}  // namespace
}  // namespace command

int main(int argc, char** argv) { return command::Run(argc, argv); }
