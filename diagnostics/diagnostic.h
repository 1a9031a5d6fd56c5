// What there is to say about the model, wherever it was found, with its location in the model's
// files.
#pragma once

#include <string>
#include <vector>

#include "agent/diagnostics.h"
#include "model/element.h"
#include "xmi/reader.h"

namespace diagnostics {

enum class Severity { kNote, kWarning, kError };

/// An element that a diagnostic is about as well.
struct Related {
  std::string text;  ///< what is to be seen there
  xmi::Location location;
};

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
  std::vector<Related> related;
  /// It tells of what is no legal IDL.
  bool isAboutLegality = false;

  /// By the location first.
  friend bool operator<(const Diagnostic& left, const Diagnostic& right);
};

/// What an export of the artifact has found, with its location. The element must be one of the
/// reader's; without one the artifact is to blame.
Diagnostic Locate(const mdktoidl::Diagnostic& found, const xmi::Reader& reader,
                  const model::Element& artifact);

/// What the reader has found: the warnings about the input.
std::vector<Diagnostic> DiagnosticsOf(const xmi::Reader& reader);

/// What the reader passed over, "passed over 12 xmi:Extension", the most frequent kinds first;
/// empty when nothing was.
std::string PassedOverText(const xmi::Reader& reader);

}  // namespace diagnostics
