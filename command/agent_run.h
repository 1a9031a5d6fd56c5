// One run of the agent for the command: what it says, what it finds, and where its files go.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "agent/export_observer.h"
#include "checks/found.h"
#include "diagnostics/diagnostic.h"
#include "model/element.h"
#include "picture/dependency_graph.h"
#include "xmi/reader.h"

namespace command {

/// Exports one artifact and follows the run from inside: checks the names of its files, and keeps
/// all that is told, with its location in the model.
class AgentRun : private mdktoidl::ExportObserver {
 public:
  /// Runs the agent with the directory as the current one, since paths from there are what it can
  /// make directories for; it gets the artifact with the targetDir changed to ".". What it declares
  /// is added to `graph`, unless that is null. Throws `Failure` when the directory can't be
  /// entered.
  AgentRun(const xmi::Reader& reader, model::Element& artifact,
           const std::filesystem::path& directory, picture::GraphMaker* graph);

  /// The names would lead files elsewhere: nothing was written.
  bool IsRefused() const { return isRefused_; }
  /// The tree was evaluated to its end.
  bool IsEvaluated() const { return isEvaluated_ && !isAborted_; }
  /// What is wrong with the names of files, in the order of the declarations.
  const std::vector<diagnostics::Diagnostic>& FileNameDiagnostics() const {
    return fileNameDiagnostics_;
  }
  /// What the agent told, in the order told, and its text, piece by piece.
  const std::vector<diagnostics::Diagnostic>& Told() const { return told_; }
  const std::vector<std::string>& Text() const { return text_; }
  /// How many declarations are exported, members and parameters among them.
  std::size_t Declarations() const { return declarations_; }

 private:
  bool Built(const mdktoidl::Root& root) override;
  void Evaluated(const mdktoidl::Root& root) override;
  void Told(const mdktoidl::Diagnostic& diagnostic) override;

  std::string NameToShow() const;

  const xmi::Reader& reader_;
  model::Element& artifact_;
  picture::GraphMaker* graph_;
  checks::DiagnosticList found_;
  std::vector<diagnostics::Diagnostic> fileNameDiagnostics_;
  std::vector<diagnostics::Diagnostic> told_;
  std::vector<std::string> text_;
  std::size_t declarations_ = 0;
  bool isRefused_ = false;
  bool isEvaluated_ = false;
  bool isAborted_ = false;
};

/// True when the file is whole. The agent doesn't notice a full disk, but then its files lack the
/// end.
bool IsComplete(const std::filesystem::path& idl);

}  // namespace command
