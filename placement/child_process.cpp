#include "placement/child_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <optional>

#include "placement/interruption.h"

namespace placement {
namespace {

/// A program inherits what its parent does about signals; it is to have them all as usual.
class UsualSignals {
 public:
  UsualSignals() {
    posix_spawnattr_init(&attributes_);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes_, &none);
    sigset_t changed;
    sigemptyset(&changed);
    sigaddset(&changed, SIGPIPE);
    sigaddset(&changed, SIGXFSZ);
    posix_spawnattr_setsigdefault(&attributes_, &changed);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  ~UsualSignals() { posix_spawnattr_destroy(&attributes_); }
  UsualSignals(const UsualSignals&) = delete;
  UsualSignals& operator=(const UsualSignals&) = delete;

  const posix_spawnattr_t* Attributes() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_;
};

class Streams {
 public:
  explicit Streams(int output) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
  }
  ~Streams() { posix_spawn_file_actions_destroy(&actions_); }
  Streams(const Streams&) = delete;
  Streams& operator=(const Streams&) = delete;

  const posix_spawn_file_actions_t* Actions() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

constexpr int signalled = 128;

/// Repeats a system call that a signal broke off; false when it fails for another reason.
template <typename Call>
bool Done(Call call) {
  while (call() < 0) {
    if (errno != EINTR) return false;
  }
  return true;
}

/// Waits until the process has ended, but leaves its number to it.
void WaitForEnd(pid_t process) {
  siginfo_t info;
  Done([&] { return waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOWAIT); });
}

int StatusOf(pid_t process) {
  int status = 0;
  if (!Done([&] { return waitpid(process, &status, 0); })) return -errno;
  return WIFEXITED(status) ? WEXITSTATUS(status) : signalled + WTERMSIG(status);
}

}  // namespace

int RunProgram(const std::vector<std::string>& words, int output) {
  const UsualSignals signals;
  const Streams streams(output);
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  pid_t process = 0;
  std::optional<EndedOnInterruption> ended;
  {
    const Uninterrupted start;  // no program without somebody who ends it
    const int error = posix_spawnp(&process, arguments.front(), streams.Actions(),
                                   signals.Attributes(), arguments.data(), environ);
    if (error != 0) return -error;
    ended.emplace(process);
  }
  WaitForEnd(process);
  ended.reset();
  return StatusOf(process);
}

}  // namespace placement
