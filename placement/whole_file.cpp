#include "placement/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <system_error>

#include "placement/failure.h"

namespace placement {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& target, int error) {
  throw Failure(kExportFailed, "can't write '" + target.string() + "': " + std::strerror(error));
}

bool WriteAll(std::FILE* file, std::string_view text) {
  const bool isWritten = std::fwrite(text.data(), 1, text.size(), file) == text.size();
  return std::fclose(file) == 0 && isWritten;
}

/// Devices and pipes can't be replaced by a file; who names one wants the text to go there.
bool IsReplaceable(const fs::path& file) {
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  return !fs::exists(status) || fs::is_regular_file(status);
}

void WriteInto(const fs::path& file, std::string_view text) {
  std::FILE* out = std::fopen(file.c_str(), "wb");
  if (out == nullptr || !WriteAll(out, text)) Fail(file, errno);
}

}  // namespace

WholeFile::WholeFile(const fs::path& target)
    : target_(target),
      temporary_(target.parent_path() /
                 ("." + target.filename().string() + "." + std::to_string(getpid()) + ".tmp")),
      removal_(temporary_) {
  std::FILE* file = std::fopen(temporary_.c_str(), "wbx");
  if (file == nullptr) Fail(target_, errno);
  std::fclose(file);
}

WholeFile::~WholeFile() {
  std::error_code ignored;
  if (!isInPlace_) fs::remove(temporary_, ignored);
}

void WholeFile::Write(std::string_view text) const {
  std::FILE* file = std::fopen(temporary_.c_str(), "wb");
  if (file == nullptr || !WriteAll(file, text)) Fail(target_, errno);
}

void WholeFile::PutInPlace() {
  std::error_code error;
  fs::rename(temporary_, target_, error);
  if (error) Fail(target_, error.value());
  isInPlace_ = true;
}

void WriteWhole(const fs::path& file, std::string_view text) {
  if (!IsReplaceable(file)) return WriteInto(file, text);
  WholeFile whole(file);
  whole.Write(text);
  whole.PutInPlace();
}

void CheckWritable(const fs::path& file) {
  std::error_code error;
  if (fs::is_directory(file, error)) Fail(file, EISDIR);
  const fs::path parent = file.has_parent_path() ? file.parent_path() : fs::path(".");
  if (access(parent.c_str(), W_OK | X_OK) != 0 && !fs::exists(file, error)) {
    Fail(file, errno);
  }
}

void Touch(const fs::path& file) {
  constexpr mode_t mode = 0666;
  const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, mode);
  if (descriptor < 0 || futimens(descriptor, nullptr) != 0) {
    const int reason = errno;
    if (descriptor >= 0) close(descriptor);
    Fail(file, reason);
  }
  close(descriptor);
}

}  // namespace placement
