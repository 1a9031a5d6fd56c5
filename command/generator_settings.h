// The settings of an exportable artifact, as the model has them and as the command line wants them.
#pragma once

#include <string>

#include "command/options.h"
#include "model/element.h"

namespace command {

/// True when the artifact carries generator settings; the agent refuses to export others.
bool HasSettings(const model::Element& artifact);

/// The text of a setting ("targetDir", ...); empty when the artifact has none.
std::string SettingOf(model::Element& artifact, const std::string& name);

/// Changes a setting in the model in memory. Does nothing to an artifact without settings.
void SetSetting(model::Element& artifact, const std::string& name, const std::string& value);

void Apply(const Overrides& overrides, model::Element& artifact);

}  // namespace command
