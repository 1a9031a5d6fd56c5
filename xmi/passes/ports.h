// What ports provide and require, which UML derives from their types and dependencies.
#pragma once

#include <unordered_map>
#include <vector>

#include "xmi/tables/reading.h"

namespace xmi {

class Ports {
 public:
  explicit Ports(Reading& reading) : reading_(reading) {}

  /// Gives every port its "Realized" and "Required".
  void Set();

 private:
  using Interfaces = std::vector<ItemIndex>;
  struct Relations {
    Interfaces realized;
    Interfaces used;
    std::vector<ItemIndex> generals;
  };

  void Collect();
  void CollectFrom(ItemIndex index, std::span<const Link> links);
  /// The relations of a classifier and its ancestors.
  Relations Inherited(ItemIndex classifier);
  /// The nearest of a classifier and its ancestors that adds to what a port gets; `kNoItem` when
  /// none does.
  ItemIndex SourceOf(ItemIndex classifier);
  void SetSource(ItemIndex classifier);
  bool IsInterface(ItemIndex classifier) const;
  void SetOne(ItemIndex port, ItemIndex type);

  Reading& reading_;
  std::unordered_map<ItemIndex, Relations> own_;
  std::unordered_map<ItemIndex, ItemIndex> sources_;
  std::vector<std::pair<ItemIndex, ItemIndex>> ports_;  // with their types
};

}  // namespace xmi
