// The course of one run of the command: read the model, export its artifacts, use what they made.
#pragma once

#include <chrono>
#include <filesystem>
#include <vector>

#include "command/agent_run.h"
#include "command/options.h"
#include "command/progress.h"
#include "command/report.h"
#include "model/model.h"
#include "picture/dependency_graph.h"
#include "placement/failure.h"
#include "placement/placement.h"
#include "xmi/reader.h"

namespace command {

class ExportSession {
 public:
  ExportSession(const Options& options, Report& report, Progress& progress);

  /// Does all that is asked for. Throws `placement::Failure`.
  placement::ExitStatus Run();

 private:
  void ReadModel();
  void ReadModelFile();
  placement::ExitStatus List();
  void ChooseArtifacts();
  void ExportAll();
  void Export(model::Element& artifact);
  AgentRun RunAgent(model::Element& artifact, const std::filesystem::path& directory);
  void Tell(const AgentRun& run);
  void Draw(const std::string& file);
  bool MayUseFiles();
  placement::ExitStatus UseFiles();
  void PutAllInPlace();
  placement::ExitStatus Verify();
  void PrintNames();
  void WriteDepfile() const;
  void Summarise() const;

  const Options& options_;
  Report& report_;
  Progress& progress_;
  model::Model model_;
  xmi::Reader reader_{model_};
  std::vector<model::Element*> artifacts_;
  placement::StagedExports exports_;
  placement::PlacedFiles placed_;
  picture::GraphMaker graph_;
  bool isGraphComplete_ = true;
  std::size_t declarations_ = 0;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

}  // namespace command
