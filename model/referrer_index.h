// Which elements refer to an element by one property.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

#include "model/element.h"

namespace model {

/// Built from one pass over the model when it is first asked, and again after the property changed.
class ReferrerIndex {
 public:
  explicit ReferrerIndex(Symbol property) : property_(property) {}

  Symbol Property() const { return property_; }

  /// True when the index has to be built before it is asked.
  bool IsStale() const { return stale_; }
  /// Says that the property of some element changed.
  void Invalidate() { stale_ = true; }

  /// Begins to build. Then `Add` takes every element of the model in creation order.
  void Begin();
  void Add(Element& referrer);
  void Finish();

  /// The elements that refer to the target, in creation order; one that does so several times
  /// stands there as often, in succession.
  std::span<Element* const> Of(const Element& target) const;

 private:
  void AddReference(const Element& target, Element& referrer);

  Symbol property_;
  bool stale_ = true;
  std::unordered_map<const Element*, std::uint32_t> targets_;   // numbered as they come
  std::vector<std::pair<std::uint32_t, Element*>> references_;  // target and referrer
  std::vector<Element*> referrers_;                             // by target
  std::vector<std::size_t> begins_;                             // in `referrers_`, and the end
};

}  // namespace model
