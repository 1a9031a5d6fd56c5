#include "command/standard_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

namespace command {

void FillClosedStandardStreams() {
  // `open` answers the lowest free number, so filling them in order puts each in its place.
  // Standard output gets a stream that can't be written: what is lost there has to be noticed.
  for (int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) != -1 || errno != EBADF) continue;
    if (open("/dev/null", stream == STDERR_FILENO ? O_WRONLY : O_RDONLY) < 0) return;
  }
}

StandardOutput::StandardOutput() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
}

void StandardOutput::Write(std::string_view text) {
  if (error_ == 0 && std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) {
    error_ = errno;
  }
}

int StandardOutput::Finish() {
  if (std::fflush(stdout) != 0 && error_ == 0) error_ = errno;
  return error_;
}

}  // namespace command
