// Dependencies: their clients and suppliers, and the lists of those that have them.
#pragma once

#include <cstdint>
#include <span>
#include <unordered_set>

#include "xmi/tables/lists.h"
#include "xmi/tables/reading.h"

namespace xmi {

class Dependencies {
 public:
  explicit Dependencies(Reading& reading) : reading_(reading) {}

  /// "Client", "Supplier" and keywords of dependencies, "ClientDependency" of their clients.
  void Set();
  /// "Generalization" of classifiers, with the realizations that count as such. After `Set`.
  void SetGeneralizations();

 private:
  void AddDeclared(Lists& lists);
  void SetOne(ItemIndex index, std::span<const Link> links, Lists& lists);
  void SetKeyword(const Item& item);
  void Add(ItemIndex client, ItemIndex dependency, Lists& lists);
  bool TakesRealizations(ItemIndex classifier) const;
  void AddRealizations(ItemIndex index, std::span<const Link> links, Lists& lists);
  void AddParent(ItemIndex realization, ItemIndex client, ItemIndex supplier, Lists& lists);

  Reading& reading_;
  std::unordered_set<std::uint64_t> known_;  // pairs of client and dependency
};

}  // namespace xmi
