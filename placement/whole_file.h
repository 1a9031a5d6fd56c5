// Files other than IDL, which the command makes itself: they appear under their names complete or
// not at all.
#pragma once

#include <filesystem>
#include <string_view>

#include "placement/interruption.h"

namespace placement {

/// A new empty file beside the one that it is to become. Goes away unless it is put in place.
class WholeFile {
 public:
  /// Throws `Failure` when it can't be made.
  explicit WholeFile(const std::filesystem::path& target);
  ~WholeFile();
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;

  const std::filesystem::path& Temporary() const { return temporary_; }

  /// Replaces what it holds. Throws `Failure` when that can't be written.
  void Write(std::string_view text) const;
  /// Gives it the target's name, in place of what has it. Throws `Failure` when that fails.
  void PutInPlace();

 private:
  std::filesystem::path target_;
  std::filesystem::path temporary_;
  RemovedOnInterruption removal_;
  bool isInPlace_ = false;
};

/// Puts a file in place, whole or not at all. Makes no directories. Throws `Failure`.
void WriteWhole(const std::filesystem::path& file, std::string_view text);

/// Throws `Failure` when it is already clear that the file can't be written.
void CheckWritable(const std::filesystem::path& file);

/// Makes the file if it is missing, and sets its time stamp to now. Throws `Failure`.
void Touch(const std::filesystem::path& file);

}  // namespace placement
