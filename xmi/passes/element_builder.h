// Makes the model's elements from what start tags say.
#pragma once

#include <string_view>

#include "xmi/tables/reading.h"
#include "xmi/text/start_tag.h"

namespace xmi {

class ElementBuilder {
 public:
  explicit ElementBuilder(Reading& reading) : reading_(reading) {}

  /// Makes the element of a start tag, of the type given, with all that its attributes say.
  ItemIndex Build(const StartTag& tag, Word type, ItemIndex owner, FileIndex file,
                  std::uint32_t offset);
  /// Makes a placeholder for an element that stands in another file.
  ItemIndex BuildPlaceholder(const StartTag& tag, ItemIndex owner, FileIndex file,
                             std::uint32_t offset);
  /// Takes a simple feature. The text must outlive the model.
  void SetSimple(ItemIndex item, Word feature, std::string_view text);
  /// Takes a reference: ids, or an href, which is followed into its file. The text ends in a NUL.
  void Refer(ItemIndex item, Word feature, std::string_view text, bool isHref);

 private:
  void SetChoice(ItemIndex item, Word feature, model::Symbol property, std::string_view text);
  std::string_view WithoutCarriageReturns(std::string_view text);

  Reading& reading_;
};

/// The type of an owned element whose start tag names none; `kNone` where it must name one.
Word DefaultType(Word feature);

}  // namespace xmi
