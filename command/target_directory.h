// Decides where an export's files go.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "model/element.h"

namespace command {

/// What decides where files go.
struct TargetRequest {
  /// The directory asked for on the command line; nothing leaves it to the artifact.
  std::optional<std::string> output;
  /// The artifact's targetDir and fileName (or else its name), and the path of its model file.
  std::string targetDir;
  std::string fileName;
  std::string modelFile;
};

/// The directory, relative to the current one where the request is. It need not exist.
std::filesystem::path PlanTargetDirectory(const TargetRequest& request);

/// The directory for the files of an artifact.
std::filesystem::path TargetDirectoryOf(model::Element& artifact,
                                        const std::optional<std::string>& output);

}  // namespace command
