// The example models, for tests that go through all of them.
#pragma once

#include <algorithm>
#include <filesystem>
#include <vector>

namespace support {

/// The models of a folder of the sources, in alphabetical order.
inline std::vector<std::filesystem::path> ModelsIn(const char* directory) {
  std::vector<std::filesystem::path> models;
  const std::filesystem::path sources = IDLEXPORT_SOURCE_DIR;
  for (const auto& entry : std::filesystem::directory_iterator(sources / directory)) {
    if (entry.path().extension() == ".uml") models.push_back(entry.path());
  }
  std::sort(models.begin(), models.end());
  return models;
}

/// Names a parameterised test after its model.
inline auto NameOfModel() {
  return [](const auto& info) { return info.param.stem().string(); };
}

}  // namespace support
