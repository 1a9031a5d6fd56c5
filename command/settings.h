// The settings of an exportable artifact, as the model has them and as the command line wants them,
// and the directory that they lead to.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "agent/vocabulary.h"
#include "command/options.h"
#include "model/element.h"

namespace command {

/// True when the artifact carries generator settings; the agent refuses to export others.
bool HasSettings(const model::Element& artifact);

/// Changes a setting in the model in memory. Does nothing to an artifact without settings.
void SetSetting(model::Element& artifact, const mdktoidl::Tag& tag, const std::string& value);

/// Changes those settings that the command line overrules.
void Apply(const Overrides& overrides, model::Element& artifact);

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
