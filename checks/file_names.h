// Whether the names of modules and of the artifact make up good paths for files: below the output
// directory, and each file's own.
#pragma once

#include <string>

#include "checks/found.h"
#include "scopes/declarations.h"

namespace checks {

/// Of a tree that is built. `artifactName` is what the artifact is called in messages. False when
/// files can't be written by these names.
bool CheckFileNames(const mdktoidl::Root& root, const std::string& artifactName,
                    DiagnosticList& found);

}  // namespace checks
