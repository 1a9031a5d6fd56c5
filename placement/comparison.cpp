#include "placement/comparison.h"

#include <cerrno>
#include <filesystem>
#include <set>
#include <string>
#include <system_error>

#include "placement/child_process.h"
#include "placement/failure.h"
#include "placement/manifest.h"
#include "placement/pruning.h"

namespace placement {
namespace {

namespace fs = std::filesystem;

constexpr const char* nothing = "/dev/null";

/// The program "diff" has long known how to say shortly what changed. Both sides bear the name of
/// the file in place, so that "patch" takes the result.
void PrintDifference(const std::string& name, const fs::path& inPlace, const fs::path& exported,
                     int output) {
  const auto label = [&name](const fs::path& path, const char* what) {
    return "--label=" + (path == nothing ? nothing : name) + "\t" + what;
  };
  const int status =
      RunProgram({"diff", "-a", "-u", label(inPlace, "(in place)"), label(exported, "(exported)"),
                  "--", inPlace.string(), exported.string()},
                 output);
  if (status == 0 || status == 1) return;
  throw Failure(kExportFailed, status == -ENOENT ? "'" + name +
                                                       "' differs; the program \"diff\", which "
                                                       "tells the differences, is not installed"
                                                 : "can't compare '" + name + "'");
}

}  // namespace

bool PrintDifferences(const StagedExports& exports, bool prune, int output) {
  bool different = false;
  std::set<fs::path> made;
  for (const auto& exported : exports) {
    for (const std::string& file : exported->files) {
      const fs::path inPlace = exported->Final(file);
      if (!made.insert(Canonical(inPlace)).second) continue;
      if (SameBytes(exported->Staged(file), inPlace)) continue;
      different = true;
      std::error_code error;
      const bool isThere = fs::exists(inPlace, error) || error;
      PrintDifference(inPlace.string(), isThere ? inPlace : fs::path(nothing),
                      exported->Staged(file), output);
    }
  }
  if (!prune) return different;
  for (const auto& exported : exports) {
    for (const std::string& file : StaleFiles(Manifest(exported->output), *exported, made)) {
      different = true;
      PrintDifference(exported->Final(file).string(), exported->Final(file), nothing, output);
    }
  }
  return different;
}

}  // namespace placement
