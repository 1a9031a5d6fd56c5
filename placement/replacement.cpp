#include "placement/replacement.h"

#include <string>
#include <system_error>

#include "placement/failure.h"

namespace placement {

namespace fs = std::filesystem;

Replacement::~Replacement() {
  std::error_code error;
  for (auto step = steps_.rbegin(); step != steps_.rend(); ++step) {
    if (step->before.empty()) {
      fs::remove(step->name, error);
    } else {
      fs::rename(step->before, step->name, error);
    }
  }
}

void Replacement::Replace(const fs::path& file, const fs::path& name, const fs::path& kept) {
  std::error_code error;
  const bool isThere = fs::exists(fs::symlink_status(name, error));
  if (isThere) {
    fs::create_hard_link(name, kept, error);
    if (error) fs::copy(name, kept, fs::copy_options::copy_symlinks, error);
  }
  if (!isThere || !error) fs::rename(file, name, error);
  if (error) {
    throw Failure(kExportFailed, "can't write '" + name.string() + "': " + error.message());
  }
  steps_.push_back({name, isThere ? kept : fs::path()});
}

}  // namespace placement
