#include "command/agent_run.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <string_view>

#include "command/failure.h"
#include "command/generator_settings.h"
#include "model/model.h"

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
      throw Failure(kExportFailed,
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

void RunAgent(const AgentLibrary& agent, model::Element& artifact,
              const std::filesystem::path& directory,
              const std::function<void(const std::string&)>& sink) {
  const CurrentDirectory current(directory);
  const SinkInPlace messages(sink);
  SetSetting(artifact, "targetDir", ".");
  agent.Export(artifact);
}

bool IsComplete(const std::filesystem::path& idl) {
  constexpr std::string_view end = "\n#endif\n";
  std::ifstream in(idl, std::ios::binary);
  in.seekg(-static_cast<std::streamoff>(end.size()), std::ios::end);
  std::string last(end.size(), '\0');
  return in.read(last.data(), static_cast<std::streamsize>(last.size())) && last == end;
}

}  // namespace command
