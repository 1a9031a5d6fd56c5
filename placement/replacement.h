// Replaces several files, all of them or none.
#pragma once

#include <filesystem>
#include <vector>

namespace placement {

class Replacement {
 public:
  Replacement() = default;
  /// Puts everything back as it was, unless it was kept.
  ~Replacement();
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  /// Gives a file a name that another may have now; `kept` is a free name on the same file system
  /// where the other stays meanwhile. Throws `Failure`.
  void Replace(const std::filesystem::path& file, const std::filesystem::path& name,
               const std::filesystem::path& kept);

  void Keep() { steps_.clear(); }

 private:
  struct Step {
    std::filesystem::path name;
    std::filesystem::path before;  // empty when there was nothing of the name
  };

  std::vector<Step> steps_;
};

}  // namespace placement
