#include "placement/whole_file.h"

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

}  // namespace placement
