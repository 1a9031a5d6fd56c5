// What the user asked for on the command line.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "diagnostics/colour.h"

namespace command {

/// What becomes of the files that an export makes.
enum class Purpose {
  kExport,   ///< They are put in place.
  kCheck,    ///< Nothing: only the messages count.
  kVerify,   ///< They are compared with those that stand in place.
  kOutputs,  ///< Their names are printed.
  kList,     ///< There is no export: the artifacts' names are printed.
};

/// How diagnostics are told.
enum class DiagnosticForm { kText, kGcc, kJson, kSarif };

/// Settings of the artifact that the command line overrules.
struct Overrides {
  std::optional<std::string> fileMapping;  ///< As the model has it: "MODULE_FLAT".
  std::optional<std::string> fileName;
  std::optional<std::string> fileSuffix;
  std::optional<std::string> isAsyncDefault;  ///< "true" or "false".
  std::optional<std::string> isVerbatim;      ///< The same.
};

struct Options {
  /// The model file's path as it was given.
  std::string model;
  /// The artifacts to export; none: the model's only exportable one.
  std::vector<std::string> artifacts;
  /// The directory that the files go under; left out: what each artifact says.
  std::optional<std::string> output;
  Purpose purpose = Purpose::kExport;
  Overrides overrides;
  /// Beginnings of addresses, and the directory that each stands for.
  std::vector<std::pair<std::string, std::string>> maps;

  /// Remove what an earlier export put there and this one doesn't make.
  bool prune = false;
  /// Warnings make the run fail.
  bool warningsAreErrors = false;
  /// What the plain form has that is not legal IDL is an error.
  bool strict = false;

  /// Files to write besides the IDL; left out: not written.
  std::optional<std::string> depfile;
  std::optional<std::string> target;  ///< What the depfile's rule makes.
  std::optional<std::string> stamp;
  std::optional<std::string> graph;

  DiagnosticForm diagnostics = DiagnosticForm::kText;
  diagnostics::ColourMode colour = diagnostics::ColourMode::kAuto;
  bool quiet = false;
  bool summary = false;

  /// Not empty: print this text (the help or the version) and do nothing else.
  std::string information;
};

/// Reads the command line. Throws `Failure` when it can't be understood.
Options ParseOptions(int argc, const char* const* argv);

}  // namespace command
