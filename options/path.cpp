#include "options/path.h"

#include <algorithm>

namespace mdktoidl {

void Path::NormalizePath(std::string& path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  const auto bothSlashes = [](char left, char right) { return left == '/' && right == '/'; };
  path.erase(std::unique(path.begin(), path.end(), bothSlashes), path.end());
}

int Path::EatDotDotSlashes(std::string& path) {
  constexpr std::string_view climb = "../";
  int count = 0;
  std::string kept;
  for (char character : path) {
    kept += character;
    if (kept.ends_with(climb)) {
      kept.resize(kept.size() - climb.size());
      ++count;
    }
  }
  path = std::move(kept);
  return count;
}

void Path::RemoveFileOrDir(std::string& path, int count) {
  for (; count > 0; --count) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos || slash == 0) return;
    path.resize(slash);
  }
}

}  // namespace mdktoidl
