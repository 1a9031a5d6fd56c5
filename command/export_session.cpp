#include "command/export_session.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <set>

#include "command/agent_library.h"
#include "command/agent_messages.h"
#include "command/agent_run.h"
#include "command/artifact_choice.h"
#include "command/comparison.h"
#include "command/depfile.h"
#include "command/element_finder.h"
#include "command/generator_settings.h"
#include "command/graph.h"
#include "command/idl_names.h"
#include "command/one_line.h"
#include "command/remarks.h"
#include "command/target_directory.h"
#include "command/written_file.h"

namespace command {
namespace {

namespace fs = std::filesystem;

/// What the manifest knows an artifact by; its name may change.
std::string ManifestName(const xmi::Reader& reader, const model::Element& artifact,
                         const fs::path& output) {
  const std::string id = reader.IdOf(artifact);
  std::error_code error;
  const fs::path model = fs::weakly_canonical(fs::absolute(reader.Locate(artifact).file), error);
  const fs::path directory = fs::weakly_canonical(fs::absolute(output), error);
  return OneLine(model.lexically_relative(directory).generic_string() + "#" +
                 (id.empty() ? NameOf(reader, artifact) : id));
}

void CheckThatFilesAreWhole(const StagedExport& exported) {
  for (const std::string& file : exported.files) {
    if (IsComplete(exported.Staged(file))) continue;
    throw Failure(kExportFailed,
                  "can't write all of '" + exported.Final(file).string() + "'; is the disk full?");
  }
}

std::string Counted(std::size_t number, const std::string& what) {
  return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

}  // namespace

ExportSession::ExportSession(const Options& options, Report& report, Progress& progress)
    : options_(options), report_(report), progress_(progress) {}

ExitStatus ExportSession::Run() {
  if (options_.graph) CheckGraphFile(*options_.graph);
  ReadModel();
  if (options_.purpose == Purpose::kList) return List();
  ChooseArtifacts();
  ExportAll();
  if (options_.graph) WriteGraph(artifacts_, *options_.graph);
  if (!MayUseFiles()) return kExportFailed;
  const ExitStatus status = UseFiles();
  if (status != kSuccess) return status;
  if (options_.depfile) WriteDepfile();
  if (options_.stamp) Touch(*options_.stamp);
  if (options_.summary) Summarise();
  return kSuccess;
}

bool ExportSession::MayUseFiles() {
  const std::string consequence =
      options_.purpose == Purpose::kExport ? "; the files in place stay as they are" : "";
  if (report_.Errors() != 0) {
    report_.Say("there are errors" + consequence);
    return false;
  }
  if (options_.warningsAreErrors && report_.Warnings() != 0) {
    report_.Say("there are warnings, which --werror takes for errors" + consequence);
    return false;
  }
  return true;
}

void ExportSession::ReadModel() {
  for (const auto& [prefix, directory] : options_.maps) reader_.Map(prefix, directory);
  ReadModelFile();
  for (const Diagnostic& remark : DiagnosticsOf(reader_)) report_.Add(remark);
  if (!options_.quiet && !reader_.PassedOver().empty()) report_.Say(PassedOverText(reader_));
}

void ExportSession::ReadModelFile() {
  const Progress::Activity activity = progress_.Show([this] {
    const xmi::ReadingProgress& reading = reader_.Progress();
    const std::string line = "reading " + options_.model;
    return reading.total == 0 ? line : line + ": " + Megabytes(reading.done, reading.total);
  });
  reader_.Read(options_.model);
}

ExitStatus ExportSession::List() {
  for (const model::Element* artifact : ExportableArtifacts(reader_)) {
    report_.Result(NameOf(reader_, *artifact) + "\n");
  }
  return kSuccess;
}

void ExportSession::ChooseArtifacts() {
  if (options_.artifacts.empty()) artifacts_.push_back(&ChooseArtifact(reader_, std::nullopt));
  for (const std::string& name : options_.artifacts) {
    model::Element& artifact = ChooseArtifact(reader_, name);
    if (std::find(artifacts_.begin(), artifacts_.end(), &artifact) == artifacts_.end()) {
      artifacts_.push_back(&artifact);
    }
  }
}

void ExportSession::ExportAll() {
  const AgentLibrary agent;
  for (model::Element* artifact : artifacts_) Export(agent, *artifact);
}

void ExportSession::Export(const AgentLibrary& agent, model::Element& artifact) {
  if (!HasSettings(artifact)) {
    report_.Say("the artifact '" + NameOf(reader_, artifact) +
                "' can't be exported: it does not carry the stereotype IDLGenerator");
  }
  Apply(options_.overrides, artifact);
  if (!CheckArtifactNames(artifact)) return;
  const fs::path output = TargetDirectoryOf(artifact, options_.output);
  const bool isPlaced = options_.purpose == Purpose::kExport && HasSettings(artifact);
  exports_.emplace_back(new StagedExport{isPlaced ? Staging::For(output) : Staging::ForNothing(),
                                         ManifestName(reader_, artifact, output),
                                         output,
                                         {}});
  StagedExport& exported = *exports_.back();
  RunAgent(agent, artifact, exported.staging.Path());
  exported.files = exported.staging.Files();
  if (report_.Errors() == 0) CheckThatFilesAreWhole(exported);
}

bool ExportSession::CheckArtifactNames(model::Element& artifact) {
  NameCheck check = CheckNames(reader_, artifact);
  declarations_ += check.declarations;
  bool isSafe = true;
  for (Diagnostic& problem : check.problems) {
    isSafe = isSafe && problem.severity != Severity::kError;
    if (options_.strict) problem.severity = Severity::kError;
    report_.Add(problem);
  }
  return isSafe;
}

void ExportSession::RunAgent(const AgentLibrary& agent, model::Element& artifact,
                             const fs::path& directory) {
  AgentMessages messages;
  {
    const Progress::Activity activity =
        progress_.Show([name = NameOf(reader_, artifact)] { return "exporting " + name; });
    command::RunAgent(agent, artifact, directory, [&](const std::string& piece) {
      messages.Take(piece);
      report_.AgentText(piece);
    });
  }
  ElementFinder finder(artifact);
  const std::vector<Diagnostic> diagnostics = DiagnosticsOf(messages, reader_, finder);
  for (const Diagnostic& diagnostic : diagnostics) report_.AddTold(diagnostic);
  report_.EndAgentText(!diagnostics.empty());
}

ExitStatus ExportSession::UseFiles() {
  CheckForConflicts(exports_);
  switch (options_.purpose) {
    case Purpose::kExport:
      PutAllInPlace();
      return kSuccess;
    case Purpose::kVerify:
      return Verify();
    case Purpose::kOutputs:
      PrintNames();
      return kSuccess;
    default:
      return kSuccess;
  }
}

/// What may fail is tried before the first file is replaced.
void ExportSession::PutAllInPlace() {
  if (options_.depfile) CheckWritable(*options_.depfile);
  if (options_.stamp) CheckWritable(*options_.stamp);
  placed_ = PutInPlace(exports_, options_.prune);
}

ExitStatus ExportSession::Verify() {
  const bool different = PrintDifferences(exports_, options_.prune, report_.ResultStream());
  return different ? kDifferent : kSuccess;
}

void ExportSession::PrintNames() {
  std::set<fs::path> printed;
  for (const auto& exported : exports_) {
    for (const std::string& file : exported->files) {
      const fs::path path = exported->Final(file);
      if (printed.insert(path).second) report_.Result(path.string() + "\n");
    }
  }
}

void ExportSession::WriteDepfile() const {
  std::string target = "idl";
  if (options_.target) {
    target = *options_.target;
  } else if (options_.stamp) {
    target = *options_.stamp;
  } else if (!exports_.front()->files.empty()) {
    target = exports_.front()->Final(exports_.front()->files.front()).string();
  }
  WriteWhole(*options_.depfile, MakeRule(target, reader_.Files()));
}

void ExportSession::Summarise() const {
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin_;
  char seconds[32];
  std::snprintf(seconds, sizeof seconds, "%.2f seconds", time.count());
  std::string text;
  if (options_.purpose == Purpose::kExport) {
    text = Counted(placed_.written, "file") + " written, " + std::to_string(placed_.unchanged) +
           " unchanged, " + std::to_string(placed_.removed) + " removed; ";
  }
  report_.Say(text + Counted(declarations_, "declaration") + "; " + seconds);
}

}  // namespace command
