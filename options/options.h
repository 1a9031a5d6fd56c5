// The settings of one export, read from the "IDLGenerator" stereotype of the exported artifact.
//
// The model is the only place where the agent is configured.
#pragma once

#include <string>

#include "host/element.h"

namespace mdktoidl {

/// How modules are spread over files.
enum FileMapping {
  ONE_FILE = 0,          ///< everything in one file
  MODULE_FLAT = 1,       ///< a file for each module, all in the root directory
  MODULE_STRUCTURED = 2  ///< a file for each module, in directories that follow the nesting
};

/// All texts are empty until `SetOptions`; what one run set stays until the next overwrites it.
class Options {
 public:
  /// Reads all settings. Throws `IDLException` for the first that the element lacks, and leaves
  /// those behind it as they were. `element` is borrowed.
  void SetOptions(mdk::IMdeEntity* element);

  /// The artifact that is exported, borrowed; null until `SetOptions`.
  mdk::IMdeEntity* Element() const { return element; }
  /// A mapping that is not known counts as `ONE_FILE`.
  FileMapping Mapping() const;
  /// Whether an operation that doesn't say is oneway.
  bool isOneway() const { return isAsyncDefault == "true"; }
  /// Whether the plain form is written, whatever compilers say of it. False for an artifact that
  /// doesn't say.
  bool isVerbatim() const { return verbatim; }
  /// The directory that all output goes under.
  std::string RootDir() const { return rootDir; }
  /// The directory of the file that holds the artifact.
  std::string ArtifactDir() const { return artifactDir; }
  std::string FileSuffix() const { return fileSuffix; }
  /// The name of the main file, without suffix and extension.
  std::string FileName() const { return fileName; }

 private:
  std::string targetDir;
  std::string fileName;
  std::string fileMapping;
  std::string fileSuffix;
  std::string artifactDir;
  mdk::IMdeEntity* element = nullptr;
  std::string isAsyncDefault;
  std::string rootDir;
  bool verbatim = false;
};

/// The settings of the current run.
extern Options options;

}  // namespace mdktoidl
