// Decides where an export's files go and lets the agent write there.
//
// The agent can make directories only along a path relative to the current directory, and treats
// "../" in its own way. Every other place is therefore made here, entered, and given to the agent
// as the current directory.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "model/element.h"

namespace command {

struct TargetDirectory {
  /// An absolute path to make and to run the agent in; empty for the current directory.
  std::filesystem::path workingDirectory;
  /// What the artifact's targetDir has to say; nothing leaves it as it is.
  std::optional<std::string> setting;
};

/// What decides where files go.
struct TargetRequest {
  /// The directory asked for on the command line; nothing leaves it to the artifact.
  std::optional<std::string> output;
  /// The artifact's targetDir and fileName (or else its name), and the path of its model file.
  std::string targetDir;
  std::string fileName;
  std::string modelFile;
};

/// Makes nothing and changes nothing.
TargetDirectory PlanTargetDirectory(const TargetRequest& request);

/// Prepares the export of an artifact: makes and enters the directory and puts the setting into the
/// model. Leaves everything as it is for an artifact without generator settings, which the agent
/// refuses. Throws `Failure` when the directory can't be made or entered.
void PrepareTargetDirectory(model::Element& artifact, const std::optional<std::string>& output);

}  // namespace command
