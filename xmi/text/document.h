// One XML file, parsed, with what is needed to say where something stands in it.
//
// The parsed tree can be dropped as soon as everything is read from it; the text itself, into which
// names and ids point, and the line index stay. It knows XML and encodings, nothing of UML.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "xmi/text/diagnostics.h"

namespace xmi {

class Document {
 public:
  /// Reads and parses a file. Throws `ReadError` when it can't be read or is no well-formed XML.
  static std::unique_ptr<Document> Load(const std::string& path);
  /// Parses a text as the file `path`, which is only a name here. Throws `ReadError`.
  static std::unique_ptr<Document> Parse(const std::string& path, std::string text);

  const std::string& Path() const { return path_; }
  /// The size of the text in bytes.
  std::size_t Size() const { return text_->size(); }
  /// The root element.
  pugi::xml_node Root() const { return tree_->document_element(); }
  /// The offset of an element's name in the text.
  std::uint32_t OffsetOf(pugi::xml_node element) const {
    return static_cast<std::uint32_t>(element.name() - text_->data());
  }
  /// The location of an offset; of the file as a whole for `kNowhere`.
  Location Locate(std::uint32_t offset) const;
  /// The text that names and attribute values of the tree point into.
  std::shared_ptr<const void> Text() const { return text_; }
  /// Frees the tree; `Root` may not be called any more.
  void DropTree() { tree_.reset(); }

  static constexpr std::uint32_t kNowhere = 0xFFFFFFFF;

 private:
  explicit Document(std::string path) : path_(std::move(path)) {}

  void Fill(std::string text);
  void RequireOneRoot() const;
  void IndexLines();
  std::size_t Characters(std::uint32_t begin, std::uint32_t end) const;
  [[noreturn]] void Fail(std::size_t offset, const std::string& text) const;

  std::string path_;
  std::shared_ptr<std::string> text_;
  std::vector<std::uint32_t> lineStarts_;
  std::unique_ptr<pugi::xml_document> tree_;
};

/// What the elements of a file answer to "Uri": its path, which has at least one "/".
std::string UriOf(const std::string& path);

/// The text of an element without child elements; several pieces of text are put together in
/// `buffer`, otherwise the result points into the document.
std::string_view TextOf(pugi::xml_node element, std::string& buffer);

}  // namespace xmi
