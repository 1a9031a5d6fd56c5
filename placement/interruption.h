// What happens when the user or the system ends the command before it is done.
//
// The half-made files are removed, then the signal takes its usual course. Signals are waited for
// by a thread of their own, where, unlike in a signal handler, directories can be removed.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <mutex>

namespace placement {

/// From now on signals that ask the command to end are treated as above, but those that the caller
/// wants to be ignored; where no thread can be made they take their usual course. Called once,
/// before there are other threads.
void WatchForInterruption();

/// While it lives the directory, or file, is removed when the command is interrupted.
class RemovedOnInterruption {
 public:
  explicit RemovedOnInterruption(std::filesystem::path directory);
  ~RemovedOnInterruption();
  RemovedOnInterruption(const RemovedOnInterruption&) = delete;
  RemovedOnInterruption& operator=(const RemovedOnInterruption&) = delete;

 private:
  std::filesystem::path directory_;
};

/// While it lives the program is ended, too, when the command is interrupted. The process must not
/// be waited for to its end meanwhile, because its number may then be another's.
class EndedOnInterruption {
 public:
  explicit EndedOnInterruption(pid_t program);
  ~EndedOnInterruption();
  EndedOnInterruption(const EndedOnInterruption&) = delete;
  EndedOnInterruption& operator=(const EndedOnInterruption&) = delete;

 private:
  pid_t program_;
};

/// While it lives an interruption waits: for steps that belong together. Not to be nested.
class Uninterrupted {
 public:
  Uninterrupted();

 private:
  std::unique_lock<std::mutex> lock_;
};

}  // namespace placement
