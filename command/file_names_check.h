// Whether the names of modules and of the artifact make up good paths for files: below the output
// directory, and each file's own.
#pragma once

#include "command/declarations.h"
#include "command/generator_settings.h"
#include "command/name_findings.h"

namespace command {

/// `hasMainFile` tells that declarations or includes are written to the main file, too.
void CheckFileNames(const Declarations& declarations, const FileSettings& settings,
                    const std::string& artifactName, bool hasMainFile, NameFindings& findings);

}  // namespace command
