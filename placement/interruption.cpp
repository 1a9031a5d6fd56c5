#include "placement/interruption.h"

#include <csignal>
#include <set>
#include <system_error>
#include <thread>

namespace placement {
namespace {

struct State {
  std::mutex mutex;      // held while steps that belong together are done
  std::mutex listMutex;  // guards the lists below
  std::set<std::filesystem::path> directories;
  std::set<pid_t> programs;
};

/// Never destroyed: the thread may still use it when the process ends.
State& TheState() {
  static State& state = *new State;
  return state;
}

void EndPrograms() {
  for (const pid_t program : TheState().programs) kill(program, SIGTERM);
}

void RemoveDirectories() {
  // The export goes on meanwhile, so a directory may get a new file while it is emptied.
  constexpr int mostTries = 100;
  for (const std::filesystem::path& directory : TheState().directories) {
    std::error_code error;
    for (int i = 0; i < mostTries && std::filesystem::exists(directory, error); ++i) {
      std::filesystem::remove_all(directory, error);
    }
  }
}

[[noreturn]] void EndBy(int signal) {
  std::signal(signal, SIG_DFL);
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, signal);
  pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
  std::raise(signal);
  std::_Exit(128 + signal);
}

void WaitForSignal(sigset_t set) {
  int signal = 0;
  if (sigwait(&set, &signal) != 0) return;
  const std::lock_guard steps(TheState().mutex);
  // Held to the end: nobody else is to say how a program ended, or to go on without a directory.
  const std::lock_guard lists(TheState().listMutex);
  EndPrograms();
  RemoveDirectories();
  EndBy(signal);
}

bool IsIgnored(int signal) {
  struct sigaction action = {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

void WatchForInterruption() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    if (!IsIgnored(signal)) sigaddset(&set, signal);
  }
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
  try {
    std::thread(WaitForSignal, set).detach();
  } catch (const std::system_error&) {
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
  }
}

RemovedOnInterruption::RemovedOnInterruption(std::filesystem::path directory)
    : directory_(std::move(directory)) {
  const std::lock_guard list(TheState().listMutex);
  TheState().directories.insert(directory_);
}

RemovedOnInterruption::~RemovedOnInterruption() {
  const std::lock_guard list(TheState().listMutex);
  TheState().directories.erase(directory_);
}

EndedOnInterruption::EndedOnInterruption(pid_t program) : program_(program) {
  const std::lock_guard list(TheState().listMutex);
  TheState().programs.insert(program_);
}

EndedOnInterruption::~EndedOnInterruption() {
  const std::lock_guard list(TheState().listMutex);
  TheState().programs.erase(program_);
}

Uninterrupted::Uninterrupted() : lock_(TheState().mutex) {}

}  // namespace placement
