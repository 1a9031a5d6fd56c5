// Passes the agent's messages on to standard output and learns from them how the export went.
//
// The agent answers nothing but text, so the texts that say that something failed are all there is
// to derive an exit status from. Each arrives as a piece of its own.
#pragma once

#include <string>

#include "command/standard_output.h"

namespace command {

class MessageSink {
 public:
  explicit MessageSink(StandardOutput& output) : output_(output) {}

  /// Takes one piece of text as the agent printed it.
  void Print(const std::string& piece);

  /// True when the model has errors, the run was aborted or an output file couldn't be opened.
  bool ExportFailed() const { return exportFailed_; }

 private:
  StandardOutput& output_;
  bool exportFailed_ = false;
};

}  // namespace command
