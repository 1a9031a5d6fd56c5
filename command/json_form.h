// Diagnostics as JSON, for scripts.
#pragma once

#include <span>
#include <string>

#include "command/diagnostic.h"

namespace command {

/// One object, with a line for each diagnostic:
///
///     "version"      1; a greater one if a change of this form may break its readers
///     "summary"      an object with the numbers "errors" and "warnings"
///     "diagnostics"  objects with the texts "severity" ("error" or "warning"), "rule" and
///                    "message"; where they are known, "file", the numbers "line" and "column",
///                    and of the model's element "element" (its "::" name) and "id" (its xmi:id)
std::string JsonForm(std::span<const Diagnostic> diagnostics);

}  // namespace command
