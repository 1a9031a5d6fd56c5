// Keeps the elements of a model: in creation order, at places that never change.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <vector>

#include "model/element.h"

namespace model {

class ElementStore {
 public:
  /// Room for the next element, to be made there at once.
  void* Place() {
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

}  // namespace model
