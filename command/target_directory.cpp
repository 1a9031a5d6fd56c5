#include "command/target_directory.h"

#include <algorithm>
#include <string_view>
#include <system_error>

#include "command/failure.h"
#include "host/model_access.h"

namespace command {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view climb = "../";

/// Whether the agent takes the path for what it is: relative, and without anything that it replaces
/// there or where the path goes on to a file below.
bool IsPlain(const std::string& path) {
  return !path.starts_with('/') && path.find('\\') == path.npos &&
         (path + "/").find(climb) == path.npos;
}

TargetDirectory WorkIn(const std::string& directory) {
  // Symbolic links are followed as the system follows them; what is still missing has none.
  std::error_code error;
  const fs::path resolved = fs::weakly_canonical(fs::absolute(directory), error);
  return {error ? fs::absolute(directory) : resolved, "."};
}

std::string DirectoryOf(const std::string& modelFile) {
  return fs::absolute(modelFile).lexically_normal().parent_path().string();
}

/// Each "../" in a targetDir, wherever it stands, climbs one directory from the model file's.
std::string ClimbFromModel(std::string targetDir, const std::string& modelFile) {
  fs::path base(DirectoryOf(modelFile));
  for (auto at = targetDir.find(climb); at != targetDir.npos; at = targetDir.find(climb)) {
    targetDir.erase(at, climb.size());
    base = base.parent_path();
  }
  return base.string() + "/" + targetDir;
}

TargetDirectory PlanFromArtifact(const TargetRequest& request) {
  if (request.targetDir.empty()) {
    // The agent's own default: a directory of the file's name, beside the model.
    if (IsPlain(request.modelFile) && IsPlain(request.fileName)) return {};
    return WorkIn(DirectoryOf(request.modelFile) + "/" + request.fileName);
  }
  std::string targetDir = request.targetDir;
  std::replace(targetDir.begin(), targetDir.end(), '\\', '/');
  if (targetDir == ".." || targetDir.ends_with("/..")) targetDir += "/";
  if (IsPlain(targetDir)) return {};
  const bool climbs = targetDir.find(climb) != targetDir.npos && !targetDir.starts_with('/');
  return WorkIn(climbs ? ClimbFromModel(targetDir, request.modelFile) : targetDir);
}

std::string Setting(model::Element& artifact, const std::string& tag) {
  mdk::IMdeEntity* value = artifact.EvalExpression("IDLGenerator (. " + tag + " .)", 0);
  return value == nullptr ? std::string() : value->GetValue("ValueString", 0);
}

TargetRequest RequestOf(model::Element& artifact, const std::optional<std::string>& output) {
  TargetRequest request{output, Setting(artifact, "targetDir"), Setting(artifact, "fileName"),
                        artifact.GetValue("Uri", 0)};
  if (request.fileName.empty()) request.fileName = artifact.GetValue("Name", 0);
  return request;
}

void MakeAndEnter(const fs::path& directory) {
  std::error_code error;
  fs::create_directories(directory, error);
  if (error) {
    throw Failure(kExportFailed,
                  "can't make the directory '" + directory.string() + "': " + error.message());
  }
  fs::current_path(directory, error);
  if (error) {
    throw Failure(kExportFailed,
                  "can't enter the directory '" + directory.string() + "': " + error.message());
  }
}

}  // namespace

TargetDirectory PlanTargetDirectory(const TargetRequest& request) {
  if (!request.output) return PlanFromArtifact(request);
  if (IsPlain(*request.output)) return {{}, request.output};
  return WorkIn(*request.output);
}

void PrepareTargetDirectory(model::Element& artifact, const std::optional<std::string>& output) {
  if (artifact.Application(model::Symbol("IDLGenerator")) == nullptr) return;
  const TargetDirectory target = PlanTargetDirectory(RequestOf(artifact, output));
  if (!target.workingDirectory.empty()) MakeAndEnter(target.workingDirectory);
  if (target.setting) {
    artifact.SetExpression("IDLGenerator (. targetDir .)", *target.setting, 1,
                           mdkdll::defaultChanger);
  }
}

}  // namespace command
