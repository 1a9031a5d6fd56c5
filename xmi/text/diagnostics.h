// What a reading tells of its input: where something stands, what is wrong there, and how far it
// is.
#pragma once

#include <atomic>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "model/element.h"

namespace xmi {

/// A position in an input file. Lines, and columns in characters, count from 1; 0 is unknown.
struct Location {
  std::string file;
  std::size_t line = 0;
  std::size_t column = 0;
};

/// A warning about the input. Its text names the element concerned and ends without a full stop;
/// its rule is a short stable name of what is wrong ("dangling-reference").
struct Diagnostic {
  Location location;
  std::string_view rule;
  std::string text;
  /// The element of the model that it is about; null when there is none.
  const model::Element* element = nullptr;
};

/// Thrown when the model file can't be read as a model. `what()` is one line, "FILE:LINE: text" or
/// "FILE: text" where no line is to blame.
class ReadError : public std::runtime_error {
 public:
  ReadError(Location location, const std::string& text);

  const Location& Where() const { return location_; }
  /// What is wrong, without the location.
  const std::string& Text() const { return text_; }

 private:
  Location location_;
  std::string text_;
};

/// The warnings of one reading, each once, in the order found.
class Diagnostics {
 public:
  /// Adds a warning unless the same text was added for the same line before. `rule` is a literal.
  void Add(Location location, std::string_view rule, std::string text,
           const model::Element* element = nullptr);

  const std::vector<Diagnostic>& All() const { return diagnostics_; }

 private:
  std::vector<Diagnostic> diagnostics_;
  std::unordered_set<std::string> known_;
};

/// Counts bytes of all files opened so far; `total` grows when a file refers to another one. May be
/// read from any thread.
struct ReadingProgress {
  std::atomic<std::size_t> done = 0;
  std::atomic<std::size_t> total = 0;
};

}  // namespace xmi
