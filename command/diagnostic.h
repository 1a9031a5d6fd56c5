// One thing that the command has to say about the model, wherever it was found.
#pragma once

#include <string>

#include "xmi/reader.h"

namespace command {

enum class Severity { kWarning, kError };

struct Diagnostic {
  Severity severity = Severity::kWarning;
  /// One line that names the element concerned, without a full stop.
  std::string text;
  /// A short stable name of what is wrong, in small letters with hyphens ("idl-keyword").
  std::string rule;
  /// Where the element stands; an empty file where nothing in a file is to blame.
  xmi::Location location;
  /// The element's "::"-qualified name below the model's root, and its xmi:id; empty where no
  /// element is to blame or it has none.
  std::string element;
  std::string id;
};

}  // namespace command
