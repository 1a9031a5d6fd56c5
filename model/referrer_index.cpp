#include "model/referrer_index.h"

#include <numeric>

namespace model {

void ReferrerIndex::Begin() {
  targets_.clear();
  references_.clear();
}

void ReferrerIndex::Add(Element& referrer) {
  if (const Element* target = referrer.Entity(property_)) AddReference(*target, referrer);
  for (const Element* target : referrer.Entities(property_)) AddReference(*target, referrer);
}

void ReferrerIndex::AddReference(const Element& target, Element& referrer) {
  const auto next = static_cast<std::uint32_t>(targets_.size());
  references_.emplace_back(targets_.try_emplace(&target, next).first->second, &referrer);
}

/// Sorts the references by target, by counting, which keeps the order of the referrers.
void ReferrerIndex::Finish() {
  begins_.assign(targets_.size() + 1, 0);
  for (const auto& [target, referrer] : references_) ++begins_[target + 1];
  std::partial_sum(begins_.begin(), begins_.end(), begins_.begin());
  referrers_.resize(references_.size());
  std::vector<std::size_t> next = begins_;
  for (const auto& [target, referrer] : references_) referrers_[next[target]++] = referrer;
  decltype(references_)().swap(references_);  // clearing it would keep the memory
  stale_ = false;
}

std::span<Element* const> ReferrerIndex::Of(const Element& target) const {
  const auto found = targets_.find(&target);
  if (found == targets_.end()) return {};
  const std::size_t begin = begins_[found->second];
  return {referrers_.data() + begin, begins_[found->second + 1] - begin};
}

}  // namespace model
