// All that the command tells its user, each thing in the form and on the stream where it belongs.
//
// Results go to standard output, unless that holds a document of diagnostics, and the agent's text,
// unless results are asked for or a document; everything else goes to standard error.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "command/options.h"
#include "command/progress.h"
#include "command/standard_output.h"
#include "diagnostics/diagnostic.h"
#include "xmi/reader.h"

namespace command {

class Report {
 public:
  Report(const Options& options, StandardOutput& output, Progress& progress);

  /// Takes one piece of text as the agent printed it.
  void AgentText(const std::string& piece);
  /// Takes a diagnostic that the agent's text has told already; the same one only once.
  void AddTold(const diagnostics::Diagnostic& diagnostic);
  /// Takes a diagnostic that was not told yet; the same one only once.
  void Add(const diagnostics::Diagnostic& diagnostic);
  /// Something that the command itself has to say.
  void Say(const std::string& text);
  /// What ends the run. It is a diagnostic as well where others read these.
  void Fail(const std::string& text);
  /// The model can't be read, which ends the run as well.
  void FailToRead(const xmi::ReadError& error);
  /// Text that was asked for, such as a list of names.
  void Result(const std::string& text);
  /// The file descriptor for results that another program writes; all text before is written.
  int ResultStream();

  std::size_t Errors() const { return errors_; }
  std::size_t Warnings() const { return warnings_; }
  /// What was repaired.
  std::size_t Notes() const { return notes_; }

  /// Writes the document of diagnostics, if one was asked for.
  void Finish();

 private:
  bool IsDocument() const;
  bool IsResultOnOutput() const;
  /// False for one that was kept before: what several artifacts export is told of by each.
  bool Keep(const diagnostics::Diagnostic& diagnostic);
  std::size_t& CountOf(diagnostics::Severity severity);
  void Tell(const diagnostics::Diagnostic& diagnostic);
  void WriteError(const std::string& text);

  const Options& options_;
  StandardOutput& output_;
  Progress& progress_;
  bool colouredOutput_;
  bool colouredErrors_;
  std::vector<diagnostics::Diagnostic> document_;
  std::set<diagnostics::Diagnostic> kept_;
  std::size_t errors_ = 0;
  std::size_t warnings_ = 0;
  std::size_t notes_ = 0;
};

}  // namespace command
