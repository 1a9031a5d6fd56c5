#include "command/export_session.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <set>
#include <span>
#include <utility>

#include "command/artifact_choice.h"
#include "command/settings.h"
#include "picture/graph.h"
#include "placement/comparison.h"
#include "placement/whole_file.h"
#include "types/one_line.h"

namespace command {
namespace {

namespace fs = std::filesystem;
using diagnostics::Diagnostic;
using placement::Failure;
using placement::kDifferent;
using placement::kExportFailed;
using placement::kSuccess;
using placement::StagedExport;
using placement::Staging;

/// What the manifest knows an artifact by; its name may change.
std::string ManifestName(const xmi::Reader& reader, const model::Element& artifact,
                         const fs::path& output) {
  const std::string id = reader.IdOf(artifact);
  const fs::path model = placement::Canonical(reader.Locate(artifact).file);
  const fs::path directory = placement::Canonical(output);
  return mdktoidl::OneLine(model.lexically_relative(directory).generic_string() + "#" +
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

/// A backslash counts as an escape only before a blank or "#", and is then itself escaped.
std::string Escaped(const std::string& path) {
  std::string text;
  std::size_t backslashes = 0;
  for (const char character : path) {
    if (character == ' ' || character == '\t' || character == '#') {
      text.append(backslashes + 1, '\\');
    } else if (character == '$') {
      text += '$';
    }
    text += character;
    backslashes = character == '\\' ? backslashes + 1 : 0;
  }
  return text;
}

/// A rule in the syntax of make: the target depends on the files. Each file gets a rule without
/// anything to do as well, so that a build doesn't stop when a file is no longer there.
std::string MakeRule(const std::string& target, std::span<const std::string> files) {
  std::string text = Escaped(target) + ":";
  for (const std::string& file : files) text += " \\\n  " + Escaped(file);
  text += "\n";
  for (const std::string& file : files) text += "\n" + Escaped(file) + ":\n";
  return text;
}

}  // namespace

ExportSession::ExportSession(const Options& options, Report& report, Progress& progress)
    : options_(options), report_(report), progress_(progress) {}

placement::ExitStatus ExportSession::Run() {
  if (options_.graph) picture::CheckGraphFile(*options_.graph);
  ReadModel();
  if (options_.purpose == Purpose::kList) return List();
  ChooseArtifacts();
  ExportAll();
  if (options_.graph) Draw(*options_.graph);
  if (!MayUseFiles()) return kExportFailed;
  const placement::ExitStatus status = UseFiles();
  if (status != kSuccess) return status;
  if (options_.depfile) WriteDepfile();
  if (options_.stamp) placement::Touch(*options_.stamp);
  if (options_.summary) Summarise();
  return kSuccess;
}

/// Also of a model with errors, which a picture may make plain.
void ExportSession::Draw(const std::string& file) {
  if (isGraphComplete_) return picture::WriteGraph(std::move(graph_).Finish(), file);
  report_.Say("not all could be exported to the end; '" + file + "' is not drawn");
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
  for (const Diagnostic& each : diagnostics::DiagnosticsOf(reader_)) report_.Add(each);
  if (!options_.quiet && !reader_.PassedOver().empty())
    report_.Say(diagnostics::PassedOverText(reader_));
}

void ExportSession::ReadModelFile() {
  const Progress::Activity activity = progress_.Show([this] {
    const xmi::ReadingProgress& reading = reader_.Progress();
    const std::string line = "reading " + options_.model;
    return reading.total == 0 ? line : line + ": " + Megabytes(reading.done, reading.total);
  });
  reader_.Read(options_.model);
}

placement::ExitStatus ExportSession::List() {
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
  for (model::Element* artifact : artifacts_) Export(*artifact);
}

void ExportSession::Export(model::Element& artifact) {
  if (!HasSettings(artifact)) {
    report_.Say("the artifact '" + NameOf(reader_, artifact) +
                "' can't be exported: it does not carry the stereotype IDLGenerator");
  }
  Apply(options_.overrides, artifact);
  const fs::path output = TargetDirectoryOf(artifact, options_.output);
  const bool isPlaced = options_.purpose == Purpose::kExport && HasSettings(artifact);
  exports_.emplace_back(new StagedExport{isPlaced ? Staging::For(output) : Staging::ForNothing(),
                                         ManifestName(reader_, artifact, output),
                                         output,
                                         {}});
  StagedExport& exported = *exports_.back();
  Tell(RunAgent(artifact, exported.staging.Path()));
  exported.files = exported.staging.Files();
  if (report_.Errors() == 0) CheckThatFilesAreWhole(exported);
}

AgentRun ExportSession::RunAgent(model::Element& artifact, const fs::path& directory) {
  const Progress::Activity activity =
      progress_.Show([name = NameOf(reader_, artifact)] { return "exporting " + name; });
  AgentRun run(reader_, artifact, directory, options_.graph ? &graph_ : nullptr);
  declarations_ += run.Declarations();
  isGraphComplete_ = isGraphComplete_ && run.IsEvaluated();
  return run;
}

// What is no legal IDL is told with its location: in the agent's text alone, users would search for
// what clashes with what.
void ExportSession::Tell(const AgentRun& run) {
  for (const Diagnostic& diagnostic : run.FileNameDiagnostics()) report_.Add(diagnostic);
  for (Diagnostic diagnostic : run.Told()) {
    if (!diagnostic.isAboutLegality) continue;
    if (options_.strict) diagnostic.severity = diagnostics::Severity::kError;
    report_.Add(diagnostic);
  }
  const bool isWorthTelling = !options_.quiet || !run.Told().empty();
  for (const std::string& piece : run.Text()) {
    if (isWorthTelling) report_.AgentText(piece);
  }
  for (const Diagnostic& diagnostic : run.Told()) {
    if (!diagnostic.isAboutLegality) report_.AddTold(diagnostic);
  }
}

placement::ExitStatus ExportSession::UseFiles() {
  placement::CheckForConflicts(exports_);
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
  if (options_.depfile) placement::CheckWritable(*options_.depfile);
  if (options_.stamp) placement::CheckWritable(*options_.stamp);
  placed_ = placement::PutInPlace(exports_, options_.prune);
}

placement::ExitStatus ExportSession::Verify() {
  const bool different =
      placement::PrintDifferences(exports_, options_.prune, report_.ResultStream());
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
  placement::WriteWhole(*options_.depfile, MakeRule(target, reader_.Files()));
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
  if (report_.Notes() != 0) text += Counted(report_.Notes(), "repair") + "; ";
  report_.Say(text + Counted(declarations_, "declaration") + "; " + seconds);
}

}  // namespace command
