// All that the command tells its user, each thing in the form and on the stream where it belongs.
//
// The agent's text and results go to standard output, unless that holds a document of diagnostics;
// everything else goes to standard error.
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
  /// Takes a problem that the agent's text has told already.
  void AddTold(const diagnostics::Diagnostic& diagnostic);
  /// Takes a problem that was not told yet; the same one only once.
  void Add(const diagnostics::Diagnostic& diagnostic);
  /// A remark of the command itself.
  void Say(const std::string& text);
  /// What ends the run. The remark is a diagnostic as well where others read these.
  void Fail(const std::string& text);
  /// The model can't be read, which ends the run as well.
  void FailToRead(const xmi::ReadError& error);
  /// Text that was asked for, such as a list of names.
  void Result(const std::string& text);
  /// The file descriptor for results that another program writes; all text before is written.
  int ResultStream();

  std::size_t Errors() const { return errors_; }
  std::size_t Warnings() const { return warnings_; }

  /// Writes the document of diagnostics, if one was asked for.
  void Finish();

 private:
  bool IsDocument() const;
  bool IsResultOnOutput() const;
  void Keep(const diagnostics::Diagnostic& diagnostic);
  void Tell(const diagnostics::Diagnostic& diagnostic);
  void WriteError(const std::string& text);

  const Options& options_;
  StandardOutput& output_;
  Progress& progress_;
  bool colouredOutput_;
  bool colouredErrors_;
  std::vector<diagnostics::Diagnostic> diagnostics_;  // for a document
  std::set<std::string> added_;
  std::size_t errors_ = 0;
  std::size_t warnings_ = 0;
};

}  // namespace command
