#include "placement/written_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <system_error>

#include "placement/failure.h"
#include "placement/whole_file.h"

namespace placement {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& file, const std::string& reason) {
  throw Failure(kExportFailed, "can't write '" + file.string() + "': " + reason);
}

/// Devices and pipes can't be replaced by a file; who names one wants the text to go there.
bool IsReplaceable(const fs::path& file) {
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  return !fs::exists(status) || fs::is_regular_file(status);
}

void Write(const fs::path& file, std::string_view text) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  if (!out) Fail(file, strerror(errno));
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  if (!out) Fail(file, strerror(errno));
}

}  // namespace

void WriteWhole(const fs::path& file, std::string_view text) {
  if (!IsReplaceable(file)) return Write(file, text);
  WholeFile whole(file);
  whole.Write(text);
  whole.PutInPlace();
}

void CheckWritable(const fs::path& file) {
  std::error_code error;
  if (fs::is_directory(file, error)) Fail(file, strerror(EISDIR));
  const fs::path parent = file.has_parent_path() ? file.parent_path() : fs::path(".");
  if (access(parent.c_str(), W_OK | X_OK) != 0 && !fs::exists(file, error)) {
    Fail(file, strerror(errno));
  }
}

void Touch(const fs::path& file) {
  constexpr mode_t mode = 0666;
  const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, mode);
  if (descriptor < 0 || futimens(descriptor, nullptr) != 0) {
    const std::string reason = strerror(errno);
    if (descriptor >= 0) close(descriptor);
    Fail(file, reason);
  }
  close(descriptor);
}

}  // namespace placement
