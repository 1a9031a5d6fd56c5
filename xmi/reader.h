// Reads XMI files of UML models into the in-memory model.
//
// One reader reads one model file, with every file that it refers to, and gives the model that the
// agent sees. What is wrong with the input but does not stop the reading becomes a diagnostic.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/model.h"
#include "xmi/text/diagnostics.h"

namespace xmi {

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

  /// What is wrong with the input, in the order found; each text once for a line.
  const std::vector<Diagnostic>& Diagnostics() const;

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
