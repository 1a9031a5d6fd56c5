// How the command ends: its exit statuses, and the exception that ends it early.
#pragma once

#include <stdexcept>
#include <string>

namespace placement {

enum ExitStatus : int {
  kSuccess = 0,
  /// The model has errors, the export was aborted, or its output couldn't be written.
  kExportFailed = 1,
  /// Bad usage, or a model file that can't be read.
  kBadInput = 2,
  /// The files in place are not what an export would write.
  kDifferent = 3,
};

/// Ends the command. `what()` is for the user, without the command's name and without a line end.
class Failure : public std::runtime_error {
 public:
  Failure(ExitStatus status, const std::string& text) : std::runtime_error(text), status_(status) {}

  ExitStatus Status() const { return status_; }

 private:
  ExitStatus status_;
};

}  // namespace placement
