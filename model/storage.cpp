#include "model/storage.h"

#include <algorithm>

namespace model {

Model::Impl::Named& Model::Impl::Make(Symbol name) {
  if (name.Id() >= named.size()) named.resize(name.Id() + 1);
  return named[name.Id()];
}

Element* Model::Impl::StereotypeOf(Symbol name) const {
  Element* found = name.Id() < named.size() ? named[name.Id()].stereotype : nullptr;
  return found == nullptr || found->deleted_ != 0 ? nullptr : found;
}

Element* Model::Impl::KeywordOf(Symbol name) const {
  Element* found = name.Id() < named.size() ? named[name.Id()].keyword : nullptr;
  return found == nullptr || found->deleted_ != 0 ? nullptr : found;
}

std::span<Element* const> Model::Impl::Referrers(Symbol property, const Element& target) {
  const auto isAsked = [&](const ReferrerIndex& index) { return index.Property() == property; };
  auto index = std::find_if(indexes.begin(), indexes.end(), isAsked);
  if (index == indexes.end()) index = indexes.emplace(indexes.end(), property);
  if (index->IsStale()) {
    index->Begin();
    elements.ForEach([&](Element& element) {
      if (element.deleted_ == 0) index->Add(element);
    });
    index->Finish();
  }
  return index->Of(target);
}

void Model::Impl::Changed(Symbol property) {
  for (ReferrerIndex& index : indexes) {
    if (index.Property() == property) index.Invalidate();
  }
}

}  // namespace model
