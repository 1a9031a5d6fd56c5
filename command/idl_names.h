// Checks the names of an export before it runs: that they are legal IDL, and lead to files of their
// own below the output directory.
//
// The agent writes names as the model has them. What it would write is checked here, by the rules
// that IDL compilers apply; what isn't exported may be named as it likes.
#pragma once

#include <cstddef>
#include <vector>

#include "command/diagnostic.h"
#include "model/element.h"
#include "xmi/reader.h"

namespace command {

struct NameCheck {
  /// Everything wrong with the names of what the artifact exports, in the order of the
  /// declarations.
  std::vector<Diagnostic> problems;
  /// How many declarations the artifact exports, members and parameters among them.
  std::size_t declarations = 0;
};

/// Costs time in proportion to the declarations and to what they name. The rules:
///
///   idl-identifier    a name that can't be written in IDL
///   idl-keyword       a keyword, or what differs from one only in capitals
///   name-clash        two declarations of one name, capitals aside, in one scope; also with an
///                     inherited operation or attribute
///   name-hides-scope  a declaration named as the scope directly around it
///   enumerator-clash  an enumerator named as something in the scope around its enumeration
///   use-clash         a declaration named as something that its scope uses: IDL takes a used name
///                     as declared there ("in Color color")
///   unsafe-name       error: a name that would make up the path of a file elsewhere
///   file-clash        two modules with the same file (error) or, on file systems that don't tell
///                     capitals apart, the same (warning)
NameCheck CheckNames(const xmi::Reader& reader, model::Element& artifact);

}  // namespace command
