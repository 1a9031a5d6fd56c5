// Reads XMI files of UML models into the in-memory model.
//
// One reader reads one model file, with every file that it refers to, and gives the model that the
// agent sees. What is wrong with the input but does not stop the reading becomes a remark.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "model/model.h"
#include "xmi/reading_progress.h"

namespace xmi {

/// A place in an input file. Lines, and columns in characters, count from 1; 0 is unknown.
struct Location {
  std::string file;
  std::size_t line = 0;
  std::size_t column = 0;
};

/// A warning about the input. Its text names the element concerned and ends without a full stop;
/// its rule is a short stable name of what is wrong ("dangling-reference").
struct Remark {
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
  ReadError(Location place, const std::string& text);

  const Location& Place() const { return place_; }
  /// What is wrong, without the place.
  const std::string& Text() const { return text_; }

 private:
  Location place_;
  std::string text_;
};

class Reader {
 public:
  /// Fills `model`, which must outlive the reader.
  explicit Reader(model::Model& model);
  ~Reader();
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  /// References that begin with `prefix` ("pathmap://TYPES/") lead to files below the directory.
  /// Called before `Read`.
  void Map(const std::string& prefix, const std::string& directory);

  /// Reads the file and those that it refers to. Called once. Throws `ReadError`.
  void Read(const std::string& path);

  /// How far `Read` is; valid as long as the reader.
  const ReadingProgress& Progress() const;

  /// What is wrong with the input, in the order found; each text once for a place.
  const std::vector<Remark>& Remarks() const;

  /// How many parts of the files were passed over, by kind ("xmi:Extension", "uml:Activity", ...).
  const std::map<std::string, std::size_t>& PassedOver() const;

  /// Every file read, as it was opened, the model file first.
  const std::vector<std::string>& Files() const;

  /// The element with that xmi:id in the model file, or else the first of another file that has it;
  /// null when there is none.
  model::Element* FindById(std::string_view id) const;

  /// The elements of a "::"-qualified name that starts below a root package or with a root's own
  /// name, in document order. Several elements may share a name.
  std::vector<model::Element*> FindByName(std::string_view qualifiedName) const;

  /// Every artifact of the model, in document order.
  std::vector<model::Element*> Artifacts() const;

  /// The "::"-qualified name below the root of an element of the model; empty for a root.
  std::string QualifiedName(const model::Element& element) const;

  /// The xmi:id of an element of the model; empty when its file gives it none.
  std::string IdOf(const model::Element& element) const;

  /// Where an element stands.
  Location Locate(const model::Element& element) const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace xmi
