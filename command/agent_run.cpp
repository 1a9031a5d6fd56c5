#include "command/agent_run.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <functional>
#include <string_view>
#include <utility>

#include "agent/export_run.h"
#include "agent/vocabulary.h"
#include "checks/file_names.h"
#include "command/settings.h"
#include "model/model.h"
#include "placement/failure.h"

namespace command {
namespace {

/// Enters a directory, and goes back to where it was.
class CurrentDirectory {
 public:
  explicit CurrentDirectory(const std::filesystem::path& directory)
      : before_(open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (before_ < 0 || chdir(directory.c_str()) != 0) {
      const std::string reason = strerror(errno);
      if (before_ >= 0) close(before_);
      throw placement::Failure(placement::kExportFailed,
                               "can't enter the directory '" + directory.string() + "': " + reason);
    }
  }
  ~CurrentDirectory() {
    [[maybe_unused]] const int result = fchdir(before_);
    close(before_);
  }
  CurrentDirectory(const CurrentDirectory&) = delete;
  CurrentDirectory& operator=(const CurrentDirectory&) = delete;

 private:
  int before_;
};

class SinkInPlace {
 public:
  explicit SinkInPlace(const std::function<void(const std::string&)>& sink) {
    model::SetMessageSink(sink);
  }
  ~SinkInPlace() { model::SetMessageSink({}); }
  SinkInPlace(const SinkInPlace&) = delete;
  SinkInPlace& operator=(const SinkInPlace&) = delete;
};

}  // namespace

AgentRun::AgentRun(const xmi::Reader& reader, model::Element& artifact,
                   const std::filesystem::path& directory, picture::GraphMaker* graph)
    : reader_(reader), artifact_(artifact), graph_(graph) {
  {
    const CurrentDirectory current(directory);
    const SinkInPlace messages([this](const std::string& piece) { text_.push_back(piece); });
    SetSetting(artifact, mdktoidl::tags::targetDir, ".");
    mdktoidl::RunExport(&artifact, this);
  }
  for (const mdktoidl::Diagnostic& each : std::move(found_).Sorted()) {
    fileNameDiagnostics_.push_back(diagnostics::Locate(each, reader, artifact));
  }
}

std::string AgentRun::NameToShow() const {
  std::string name = reader_.QualifiedName(artifact_);
  return name.empty() ? reader_.IdOf(artifact_) : name;
}

bool AgentRun::Built(const mdktoidl::Root& root) {
  isRefused_ = !checks::CheckFileNames(root, NameToShow(), found_);
  return !isRefused_;
}

void AgentRun::Evaluated(const mdktoidl::Root& root) {
  isEvaluated_ = true;
  declarations_ =
      static_cast<std::size_t>(std::ranges::count_if(root.Nodes(), &mdktoidl::Node::isDeclared));
  if (graph_ != nullptr) graph_->Add(root);
}

void AgentRun::Told(const mdktoidl::Diagnostic& diagnostic) {
  isAborted_ = isAborted_ || SeverityOf(diagnostic.message) == mdktoidl::Severity::fatal;
  told_.push_back(diagnostics::Locate(diagnostic, reader_, artifact_));
}

bool IsComplete(const std::filesystem::path& idl) {
  constexpr std::string_view end = "\n#endif\n";
  std::ifstream in(idl, std::ios::binary);
  in.seekg(-static_cast<std::streamoff>(end.size()), std::ios::end);
  std::string last(end.size(), '\0');
  return in.read(last.data(), static_cast<std::streamsize>(last.size())) && last == end;
}

}  // namespace command
