#include "command/target_directory.h"

#include <algorithm>
#include <string_view>

#include "command/generator_settings.h"

namespace command {
namespace {

namespace fs = std::filesystem;

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

}  // namespace

fs::path PlanTargetDirectory(const TargetRequest& request) {
  const fs::path planned = request.output ? fs::path(*request.output) : PlanFromArtifact(request);
  // A directory is named without the "/" that may end it, so that the names of files fit behind.
  const fs::path normal = planned.lexically_normal();
  return normal.has_filename() ? planned : planned.parent_path();
}

fs::path TargetDirectoryOf(model::Element& artifact, const std::optional<std::string>& output) {
  return PlanTargetDirectory({output, SettingOf(artifact, "targetDir"),
                              FileSettingsOf(artifact).fileName, artifact.GetValue("Uri", 0)});
}

}  // namespace command
