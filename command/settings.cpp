#include "command/settings.h"

#include <algorithm>
#include <string_view>

#include "host/model_access.h"

namespace command {
namespace {

namespace fs = std::filesystem;
namespace properties = mdktoidl::properties;
namespace tags = mdktoidl::tags;

constexpr std::string_view climb = "../";

fs::path DirectoryOf(const std::string& modelFile) {
  return fs::absolute(modelFile).lexically_normal().parent_path();
}

/// Each "../" in a targetDir, wherever it stands, climbs one directory from the model file's.
fs::path ClimbFromModel(std::string targetDir, const std::string& modelFile) {
  fs::path base = DirectoryOf(modelFile);
  for (auto at = targetDir.find(climb); at != targetDir.npos; at = targetDir.find(climb)) {
    targetDir.erase(at, climb.size());
    base = base.parent_path();
  }
  return base.string() + "/" + targetDir;
}

fs::path PlanFromArtifact(const TargetRequest& request) {
  if (request.targetDir.empty()) {
    const std::string directory = fs::path(request.modelFile).parent_path().string();
    return directory + "/" + request.fileName;
  }
  std::string targetDir = request.targetDir;
  std::replace(targetDir.begin(), targetDir.end(), '\\', '/');
  if (targetDir == ".." || targetDir.ends_with("/..")) targetDir += "/";
  const bool climbs = targetDir.find(climb) != targetDir.npos && !targetDir.starts_with('/');
  return climbs ? ClimbFromModel(targetDir, request.modelFile) : fs::path(targetDir);
}

/// The text of a setting; empty when the artifact has none.
std::string SettingOf(model::Element& artifact, const mdktoidl::Tag& tag) {
  mdk::IMdeEntity* value = artifact.EvalExpression(tag.Expression(), 0);
  return value == nullptr ? std::string() : value->GetValue(properties::valueString, 0);
}

}  // namespace

bool HasSettings(const model::Element& artifact) {
  static const model::Symbol generator(mdktoidl::stereotypes::idlGenerator.Name());
  return artifact.Application(generator) != nullptr;
}

void SetSetting(model::Element& artifact, const mdktoidl::Tag& tag, const std::string& value) {
  if (!HasSettings(artifact)) return;
  artifact.SetExpression(tag.Expression(), value, 1, mdkdll::defaultChanger);
}

void Apply(const Overrides& overrides, model::Element& artifact) {
  const auto set = [&artifact](const mdktoidl::Tag& tag, const std::optional<std::string>& value) {
    if (value) SetSetting(artifact, tag, *value);
  };
  set(tags::fileMapping, overrides.fileMapping);
  set(tags::fileName, overrides.fileName);
  set(tags::fileSuffix, overrides.fileSuffix);
  set(tags::isAsyncDefault, overrides.isAsyncDefault);
  set(tags::isVerbatim, overrides.isVerbatim);
}

fs::path PlanTargetDirectory(const TargetRequest& request) {
  const fs::path planned = request.output ? fs::path(*request.output) : PlanFromArtifact(request);
  // A directory is named without the "/" that may end it, so that the names of files fit behind.
  const fs::path normal = planned.lexically_normal();
  return normal.has_filename() ? planned : planned.parent_path();
}

fs::path TargetDirectoryOf(model::Element& artifact, const std::optional<std::string>& output) {
  std::string fileName = SettingOf(artifact, tags::fileName);
  if (fileName.empty()) fileName = artifact.GetValue(properties::name, 0);
  return PlanTargetDirectory({output, SettingOf(artifact, tags::targetDir), fileName,
                              artifact.GetValue(properties::uri, 0)});
}

}  // namespace command
