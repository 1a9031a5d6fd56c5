// What a model consists of; for the sources of model/ only.
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <new>
#include <string_view>
#include <vector>

#include "model/arena.h"
#include "model/model.h"
#include "model/referrer_index.h"

namespace model {

/// Keeps the elements of a model: in creation order, at addresses that never change.
class ElementStore {
 public:
  /// Room for the next element, to be made there at once.
  void* Allocate() {
    if (used_ == chunkSize || chunks_.empty()) {
      chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(chunkSize * sizeof(Element)));
      used_ = 0;
    }
    return chunks_.back().get() + sizeof(Element) * used_++;
  }

  /// Calls `visit` with every element made so far.
  template <typename Visitor>
  void ForEach(const Visitor& visit) {
    for (std::size_t chunk = 0; chunk < chunks_.size(); ++chunk) {
      const std::size_t size = chunk + 1 == chunks_.size() ? used_ : chunkSize;
      auto* elements = std::launder(reinterpret_cast<Element*>(chunks_[chunk].get()));
      for (std::size_t i = 0; i < size; ++i) visit(elements[i]);
    }
  }

 private:
  static constexpr std::size_t chunkSize = 1024;

  std::vector<std::unique_ptr<std::byte[]>> chunks_;
  std::size_t used_ = 0;  // of the last chunk
};

struct Model::Impl {
  /// The stereotype and the keyword of one name, by the name's symbol.
  struct Named {
    Element* stereotype = nullptr;
    Element* keyword = nullptr;
  };

  /// Of the name; the entry is made when there is none. Valid until the next call.
  Named& Make(Symbol name);
  /// Of the name; null when there is none or it is deleted.
  Element* StereotypeOf(Symbol name) const;
  Element* KeywordOf(Symbol name) const;
  /// The text that answers where an element has none; empty when there is none.
  std::string_view DefaultText(Symbol property) const {
    return property.Id() < defaultTexts.size() ? defaultTexts[property.Id()] : std::string_view();
  }

  /// The elements of which some property refers to the target.
  std::span<Element* const> Referrers(Symbol property, const Element& target);
  /// Says that the property of some element changed.
  void Changed(Symbol property);

  ElementStore elements;
  ArrayArena arrays;
  Arena texts;
  std::vector<std::shared_ptr<const void>> kept;
  std::vector<std::string_view> defaultTexts;  // by property
  std::vector<Element*> roots;
  Element* session = nullptr;
  Element* profile = nullptr;
  std::vector<Named> named;
  std::deque<ReferrerIndex> indexes;  // one for each property asked for; a handful at most
  bool hasDeleted = false;            // some element is deleted, so that lists may hold it
};

}  // namespace model
