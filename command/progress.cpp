#include "command/progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include "types/one_line.h"

namespace command {
namespace {

constexpr std::chrono::milliseconds patience{500};
constexpr std::chrono::milliseconds interval{100};

void WriteRaw(std::string_view text) {
  // It is decoration; when it can't be written nothing is lost.
  [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text.data(), text.size());
}

std::size_t TerminalWidth() {
  constexpr std::size_t usual = 80;
  winsize size{};
  const bool known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : usual;
}

/// Cuts a line to fit, since one that wraps can't be taken away. Never inside a character.
std::string Fitting(std::string line, std::size_t width) {
  if (line.size() < width) return line;
  std::size_t end = width - 1;
  while (end > 0 && (line[end] & 0xC0) == 0x80) --end;
  line.resize(end);
  return line;
}

}  // namespace

Progress::Progress(bool enabled) {
  if (!enabled) return;
  try {
    thread_ = std::thread([this] { Run(); });
  } catch (const std::system_error&) {
    // It is decoration; without a thread there is none.
  }
}

Progress::~Progress() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
    Erase();
  }
  changed_.notify_one();
  thread_.join();
}

Progress::Activity Progress::Show(std::function<std::string()> line) {
  SetLine(std::move(line));
  return Activity(*this);
}

void Progress::SetLine(std::function<std::string()> line) {
  const std::lock_guard lock(mutex_);
  line_ = std::move(line);
  if (!line_) Erase();
}

void Progress::Hide() {
  const std::lock_guard lock(mutex_);
  Erase();
}

void Progress::Run() {
  std::unique_lock lock(mutex_);
  while (!ended_) {
    changed_.wait_for(lock, interval);
    if (!ended_ && line_ && Clock::now() - begin_ >= patience) Draw();
  }
}

void Progress::Draw() {
  WriteRaw("\r\033[K" + Fitting(mdktoidl::OneLine(line_()), TerminalWidth()));
  shown_ = true;
}

void Progress::Erase() {
  if (shown_) WriteRaw("\r\033[K");
  shown_ = false;
}

bool IsTerminal() {
  const char* terminal = std::getenv("TERM");
  return isatty(STDERR_FILENO) != 0 && terminal != nullptr && *terminal != '\0' &&
         std::string_view(terminal) != "dumb";
}

std::string Megabytes(std::size_t done, std::size_t total) {
  constexpr double megabyte = 1e6;
  char text[64];
  std::snprintf(text, sizeof text, "%.1f of %.1f MB", static_cast<double>(done) / megabyte,
                static_cast<double>(total) / megabyte);
  return text;
}

}  // namespace command
