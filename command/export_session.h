// The course of one run of the command: read the model, export its artifacts, use what they made.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <vector>

#include "command/agent_library.h"
#include "command/failure.h"
#include "command/options.h"
#include "command/placement.h"
#include "command/progress.h"
#include "command/report.h"
#include "command/staged_export.h"
#include "model/model.h"
#include "xmi/reader.h"

namespace command {

class ExportSession {
 public:
  ExportSession(const Options& options, Report& report, Progress& progress);

  /// Does all that is asked for. Throws `Failure`.
  ExitStatus Run();

 private:
  void ReadModel();
  void ReadModelFile();
  ExitStatus List();
  void ChooseArtifacts();
  void ExportAll();
  void Export(const AgentLibrary& agent, model::Element& artifact);
  /// Tells what is wrong with the names; false when the agent must not write files by them.
  bool CheckArtifactNames(model::Element& artifact);
  void RunAgent(const AgentLibrary& agent, model::Element& artifact,
                const std::filesystem::path& directory);
  bool MayUseFiles();
  ExitStatus UseFiles();
  void PutAllInPlace();
  ExitStatus Verify();
  void PrintNames();
  void WriteDepfile() const;
  void Summarise() const;

  const Options& options_;
  Report& report_;
  Progress& progress_;
  model::Model model_;
  xmi::Reader reader_{model_};
  std::vector<model::Element*> artifacts_;
  StagedExports exports_;
  PlacedFiles placed_;
  std::size_t declarations_ = 0;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

}  // namespace command
