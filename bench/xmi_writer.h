// Writes a UML model as an XMI file, element by element, in the way of common modelling tools.
//
// For the benchmarks' models alone: it writes what these need and checks nothing.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

class XmiWriter {
 public:
  /// Writes the head of the file. The stream is borrowed.
  explicit XmiWriter(std::ostream& out);

  /// Begins an element with a new id, which is returned. `type` may be empty, as may `name`;
  /// `attributes` follow as they stand, each with a blank before it.
  std::string Open(std::string_view tag, std::string_view type, std::string_view name,
                   std::string_view attributes = {});
  /// Ends the element begun last.
  void Close();
  /// An element without content; returns its id.
  std::string Empty(std::string_view tag, std::string_view type, std::string_view name,
                    std::string_view attributes = {});

  /// The type of the element begun last, if it is one of the library's.
  void PredefinedType(std::string_view type);
  /// A comment of the element begun last.
  void Comment(std::string_view text);
  /// Applies a stereotype of the profile to the element of an id; `tags` as attributes.
  void Apply(std::string_view stereotype, std::string_view metaclass, std::string_view id,
             std::string_view tags = {});
  /// An artifact that exports packages, and the end of the file. `mapping` is the file mapping.
  void Finish(const std::vector<std::string>& packages, std::string_view mapping);

  /// How many ids were made so far, and the id with a number, from 1: so that an element can refer
  /// to one that is not written yet.
  std::size_t Ids() const { return ids_; }
  static std::string IdOf(std::size_t number);

 private:
  std::string NewId() { return IdOf(++ids_); }
  void BeginTag(std::string_view tag, std::string_view type, std::string_view id,
                std::string_view name, std::string_view attributes);
  void Indent();

  std::ostream& out_;
  std::vector<std::string> open_;
  std::string applications_;
  std::size_t ids_ = 0;
};

/// ` type="id"`: the attribute by which an element names its type.
std::string TypeOf(std::string_view id);

}  // namespace bench
