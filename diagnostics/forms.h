// Diagnostics as text: as compilers print them, which editors know how to follow, and as documents
// for other programs.
#pragma once

#include <span>
#include <string>

#include "diagnostics/diagnostic.h"

namespace diagnostics {

/// "FILE:LINE:COLUMN: error: TEXT [RULE]" and a line end for each, and a line "note: TEXT" behind
/// it for each related element. What is unknown of the location is left out; without a file the
/// command's name stands there. Control characters are written as escapes ("\n"). With `colour`,
/// severities are coloured for a terminal.
std::string GccForm(std::span<const Diagnostic> diagnostics, bool colour = false);

/// JSON, for scripts.
///
/// One object, with a line for each diagnostic:
///
///     "version"      1; a greater one if a change of this form may break its readers
///     "summary"      an object with the numbers "errors", "warnings" and "notes"
///     "diagnostics"  objects with the texts "severity" ("error", "warning" or "note"), "rule" and
///                    "message"; where they are known, "file", the numbers "line" and "column",
///                    and of the model's element "element" (its "::" name) and "id" (its xmi:id);
///                    and "related", objects with "message", "file", "line" and "column" for other
///                    elements that it is about
std::string JsonForm(std::span<const Diagnostic> diagnostics);

/// SARIF 2.1.0, for the tools that collect and show the results of checks.
///
/// One run. A file's path becomes a relative reference, or a "file:" URI when it is absolute. The
/// result of an element has a fingerprint of its rule and xmi:id, which stays when the element
/// moves in its file.
std::string SarifForm(std::span<const Diagnostic> diagnostics);

}  // namespace diagnostics
