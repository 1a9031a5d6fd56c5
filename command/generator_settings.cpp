#include "command/generator_settings.h"

#include "host/model_access.h"

namespace command {
namespace {

std::string Expression(const std::string& name) { return "IDLGenerator (. " + name + " .)"; }

}  // namespace

bool HasSettings(const model::Element& artifact) {
  return artifact.Application(model::Symbol("IDLGenerator")) != nullptr;
}

std::string SettingOf(model::Element& artifact, const std::string& name) {
  mdk::IMdeEntity* value = artifact.EvalExpression(Expression(name), 0);
  return value == nullptr ? std::string() : value->GetValue("ValueString", 0);
}

FileSettings FileSettingsOf(model::Element& artifact) {
  FileSettings settings{SettingOf(artifact, "fileName"), SettingOf(artifact, "fileSuffix")};
  if (settings.fileName.empty()) settings.fileName = artifact.GetValue("Name", 0);
  const std::string mapping = SettingOf(artifact, "fileMapping");
  if (mapping == "MODULE_FLAT") settings.mapping = FileMapping::kModuleFlat;
  if (mapping == "MODULE_STRUCTURED") settings.mapping = FileMapping::kModuleStructured;
  return settings;
}

void SetSetting(model::Element& artifact, const std::string& name, const std::string& value) {
  if (!HasSettings(artifact)) return;
  artifact.SetExpression(Expression(name), value, 1, mdkdll::defaultChanger);
}

void Apply(const Overrides& overrides, model::Element& artifact) {
  const auto set = [&artifact](const std::string& name, const std::optional<std::string>& value) {
    if (value) SetSetting(artifact, name, *value);
  };
  set("fileMapping", overrides.fileMapping);
  set("fileName", overrides.fileName);
  set("fileSuffix", overrides.fileSuffix);
  set("isAsyncDefault", overrides.isAsyncDefault);
}

}  // namespace command
