#include "tests/support/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace support {
namespace {

/// A file without a name that collects what a program writes: unlike a pipe it is never full.
class Capture {
 public:
  Capture() : file_(memfd_create("capture", MFD_CLOEXEC)) {
    if (file_ < 0) throw std::runtime_error("can't capture the output of a program");
  }
  ~Capture() { close(file_); }
  Capture(const Capture&) = delete;
  Capture& operator=(const Capture&) = delete;

  int File() const { return file_; }

  std::string Text() const {
    std::string text;
    char buffer[4096];
    for (ssize_t count; (count = pread(file_, buffer, sizeof buffer, text.size())) > 0;) {
      text.append(buffer, count);
    }
    return text;
  }

 private:
  int file_;
};

class FileActions {
 public:
  FileActions() { posix_spawn_file_actions_init(&actions_); }
  ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;

  posix_spawn_file_actions_t* Get() { return &actions_; }
  void Open(int stream, const char* path, int flags) {
    posix_spawn_file_actions_addopen(&actions_, stream, path, flags, 0);
  }
  void Use(int stream, int file) { posix_spawn_file_actions_adddup2(&actions_, file, stream); }
  void Close(int stream) { posix_spawn_file_actions_addclose(&actions_, stream); }

 private:
  posix_spawn_file_actions_t actions_;
};

/// The writing end of a pipe whose reading end is closed; the caller closes it.
int BrokenPipe() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("can't make a pipe");
  close(ends[0]);
  return ends[1];
}

/// Starts a program. The caller waits for it.
pid_t Start(const std::vector<std::string>& command, FileActions& actions,
            const std::filesystem::path& directory) {
  if (!directory.empty()) {
    posix_spawn_file_actions_addchdir_np(actions.Get(), directory.c_str());
  }
  std::vector<char*> arguments;
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  pid_t process = 0;
  if (posix_spawnp(&process, arguments[0], actions.Get(), nullptr, arguments.data(), environ)) {
    throw std::runtime_error("can't run " + command[0]);
  }
  return process;
}

int Wait(pid_t process) {
  int status = 0;
  if (waitpid(process, &status, 0) != process) throw std::runtime_error("can't wait");
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

ProcessResult RunProcess(const std::vector<std::string>& command,
                         const std::filesystem::path& directory, OutputKind outputKind) {
  const Capture output;
  const Capture errors;
  const int brokenPipe = BrokenPipe();
  FileActions actions;
  actions.Open(STDIN_FILENO, "/dev/null", O_RDONLY);
  actions.Use(STDERR_FILENO, errors.File());
  if (outputKind == OutputKind::kCaptured) actions.Use(STDOUT_FILENO, output.File());
  if (outputKind == OutputKind::kBrokenPipe) actions.Use(STDOUT_FILENO, brokenPipe);
  if (outputKind == OutputKind::kClosed) actions.Close(STDOUT_FILENO);
  if (outputKind == OutputKind::kFull) actions.Open(STDOUT_FILENO, "/dev/full", O_WRONLY);

  ProcessResult result;
  result.status = Wait(Start(command, actions, directory));
  close(brokenPipe);
  result.output = output.Text();
  result.errors = errors.Text();
  return result;
}

RunningProcess::RunningProcess(const std::vector<std::string>& command,
                               const std::filesystem::path& directory, int output) {
  FileActions actions;
  actions.Open(STDIN_FILENO, "/dev/null", O_RDONLY);
  actions.Open(STDERR_FILENO, "/dev/null", O_WRONLY);
  actions.Use(STDOUT_FILENO, output);
  process_ = Start(command, actions, directory);
}

int RunningProcess::EndBy(int signal) const {
  kill(process_, signal);
  return Wait(process_);
}

}  // namespace support
