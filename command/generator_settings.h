// The settings of an exportable artifact, as the model has them and as the command line wants them.
#pragma once

#include <string>

#include "command/options.h"
#include "model/element.h"

namespace command {

enum class FileMapping { kOneFile, kModuleFlat, kModuleStructured };

/// What decides the names of files.
struct FileSettings {
  /// The name of the main file; the artifact's own where the setting is empty.
  std::string fileName;
  std::string fileSuffix;
  /// A mapping that isn't known counts as one file.
  FileMapping mapping = FileMapping::kOneFile;
};

/// True when the artifact carries generator settings; the agent refuses to export others.
bool HasSettings(const model::Element& artifact);

/// The text of a setting ("targetDir", ...); empty when the artifact has none.
std::string SettingOf(model::Element& artifact, const std::string& name);

/// Settings that the artifact lacks are empty.
FileSettings FileSettingsOf(model::Element& artifact);

/// Changes a setting in the model in memory. Does nothing to an artifact without settings.
void SetSetting(model::Element& artifact, const std::string& name, const std::string& value);

void Apply(const Overrides& overrides, model::Element& artifact);

}  // namespace command
