// A line on the terminal that shows what a long run is doing.
//
// It appears after half a second, on standard error when that is a terminal, and is gone when the
// command has something to say. A thread of its own draws it.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace command {

class Progress {
 public:
  /// Without `enabled` it shows nothing, ever.
  explicit Progress(bool enabled);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// While it lives the line is shown.
  class Activity {
   public:
    explicit Activity(Progress& progress) : progress_(progress) {}
    ~Activity() { progress_.SetLine(nullptr); }
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;

   private:
    Progress& progress_;
  };

  /// Shows what `line` answers, one activity at a time. It is called from another thread.
  [[nodiscard]] Activity Show(std::function<std::string()> line);
  /// Takes the line away before other text is written; it comes back a little later.
  void Hide();

 private:
  using Clock = std::chrono::steady_clock;

  void SetLine(std::function<std::string()> line);
  void Run();
  void Draw();
  void Erase();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::function<std::string()> line_;
  Clock::time_point begin_ = Clock::now();
  bool shown_ = false;
  bool ended_ = false;
  std::thread thread_;
};

/// True when a line can be shown and taken away again on standard error.
bool IsTerminal();

/// "12.3 of 144.0 MB".
std::string Megabytes(std::size_t done, std::size_t total);

}  // namespace command
