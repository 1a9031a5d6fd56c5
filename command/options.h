// What the user asked for on the command line.
#pragma once

#include <optional>
#include <string>

namespace command {

struct Options {
  /// The model file's path as it was given.
  std::string model;
  /// The artifact to export; left out: the model's only exportable one.
  std::optional<std::string> artifact;
  /// The directory that the files go under; left out: what the artifact says.
  std::optional<std::string> output;
  /// List the exportable artifacts and export nothing.
  bool list = false;
  /// Not empty: print this text (the help or the version) and do nothing else.
  std::string information;
};

/// Reads the command line. Throws `Failure` when it can't be understood.
Options ParseOptions(int argc, const char* const* argv);

}  // namespace command
