// Dependencies: their clients and suppliers, the lists of those that have them, and the
// realizations that count as generalizations.
#include <cstdint>
#include <span>
#include <unordered_set>

#include "xmi/passes/passes.h"

namespace xmi {
namespace {

// How much a reference says about the supplier of a dependency; 0 for nothing. Tools repeat the
// supplier in the features that UML has for it in special dependencies, and some write these alone.
int SupplierRank(Word type, Word feature) {
  switch (feature) {
    case Word::kImportedPackage:
      return type == Word::kPackageImport ? 4 : 0;
    case Word::kContract:
      return type == Word::kInterfaceRealization ? 4 : 1;
    case Word::kSupplier:
      return 3;
    case Word::kUtilizedElement:
      return 2;
    default:
      return 0;
  }
}

// An import is one of two kinds, which UML tells by its visibility and names by these keywords.
void SetKeyword(model::Model& model, const Item& item) {
  if (item.type == Word::kManifestation) {
    model.AddKeyword(*item.element, keywords::manifest.Text());
  }
  if (item.type != Word::kPackageImport) return;
  const std::string_view visibility = item.element->Text(properties::visibility);
  if (visibility.empty() || visibility == values::publicVisibility) {
    model.AddKeyword(*item.element, keywords::import.Text());
  } else if (visibility == values::privateVisibility) {
    model.AddKeyword(*item.element, keywords::access.Text());
  }
}

class Dependencies {
 public:
  explicit Dependencies(Reading& reading) : reading_(reading) {}

  void Set() {
    AddDeclared();
    reading_.ForEachItem([&](ItemIndex index, std::span<const Link> links) {
      if (IsDependency(reading_.items[index].type)) SetOne(index, links);
    });
    lists_.Store(reading_.items, properties::clientDependency);
  }

 private:
  /// Those that an element lists itself stand before the others.
  void AddDeclared() {
    for (const Link& link : reading_.links) {
      if (link.feature != Word::kClientDependency || link.to == kNoItem) continue;
      if (IsDependency(reading_.items[link.to].type)) Add(link.from, link.to);
    }
  }

  void Add(ItemIndex client, ItemIndex dependency) {
    const std::uint64_t pair = static_cast<std::uint64_t>(client) << 32 | dependency;
    if (known_.insert(pair).second) lists_.Add(client, reading_.items[dependency].element);
  }

  void SetOne(ItemIndex index, std::span<const Link> links) {
    const Item& item = reading_.items[index];
    ItemIndex client = kNoItem;
    ItemIndex supplier = kNoItem;
    int best = 0;
    bool namesClient = false;
    bool namesSupplier = false;
    for (const Link& link : links) {
      const int rank = SupplierRank(item.type, link.feature);
      namesClient = namesClient || link.feature == Word::kClient;
      namesSupplier = namesSupplier || rank != 0;
      if (link.to == kNoItem || reading_.items[link.to].element == nullptr) continue;
      if (rank > best) {
        best = rank;
        supplier = link.to;
      }
      if (link.feature != Word::kClient) continue;
      if (client == kNoItem) client = link.to;
      Add(link.to, index);
    }
    // What stands in a classifier needs no client; a package only holds its dependencies.
    if (client == kNoItem && item.owner != kNoItem) {
      client = item.owner;
      if (!item.Has(Item::kMember)) Add(client, index);
    }
    if (item.Has(Item::kMember) && (!namesClient || !namesSupplier)) {
      reading_.Warn(
          index, "dependency-incomplete",
          reading_.Describe(index) + " names no " + (namesClient ? "supplier" : "client"));
    }
    if (client != kNoItem) {
      item.element->SetEntity(properties::client, reading_.items[client].element);
    }
    if (supplier != kNoItem) {
      item.element->SetEntity(properties::supplier, reading_.items[supplier].element);
    }
    SetKeyword(reading_.model, item);
  }

  Reading& reading_;
  Lists lists_;
  std::unordered_set<std::uint64_t> known_;  // pairs of client and dependency
};

class Generalizations {
 public:
  explicit Generalizations(Reading& reading) : reading_(reading) {}

  void Set() {
    for (ItemIndex index = 0; index < reading_.items.Size(); ++index) AddOwned(index);
    reading_.ForEachItem([&](ItemIndex index, std::span<const Link> links) {
      const Word type = reading_.items[index].type;
      const bool isRealization = type == Word::kRealization || type == Word::kInterfaceRealization;
      if (isRealization) AddRealizations(index, links);
    });
    lists_.Store(reading_.items, properties::generalization);
  }

 private:
  void AddOwned(ItemIndex index) {
    const Item& item = reading_.items[index];
    if (item.owner == kNoItem || item.Has(Item::kMember)) return;
    if (item.type == Word::kGeneralization) lists_.Add(item.owner, item.element);
    if (item.type != Word::kInterfaceRealization || !TakesRealizations(item.owner)) return;
    item.element->SetEntity(properties::parent, item.element->Entity(properties::supplier));
    lists_.Add(item.owner, item.element);
  }

  /// UML lets no class specialise an interface, so these realize the interfaces that they support.
  bool TakesRealizations(ItemIndex classifier) const {
    const model::Element* element = reading_.items[classifier].element;
    if (element == nullptr) return false;
    return element->Application(stereotypes::corbaValue) != nullptr ||
           element->Application(stereotypes::corbaComponent) != nullptr ||
           element->Application(stereotypes::corbaHome) != nullptr;
  }

  /// Realizations that stand elsewhere than in their client.
  void AddRealizations(ItemIndex index, std::span<const Link> links) {
    const Item& item = reading_.items[index];
    for (const Link& client : links) {
      if (client.feature != Word::kClient || client.to == kNoItem) continue;
      const bool isOwners = client.to == item.owner && !item.Has(Item::kMember);
      if (isOwners || !TakesRealizations(client.to)) continue;
      std::unordered_set<ItemIndex> suppliers;
      for (const Link& supplier : links) {
        const bool isKnown = IsSupplierFeature(supplier.feature) && supplier.to != kNoItem;
        if (isKnown && suppliers.insert(supplier.to).second) {
          AddParent(index, client.to, supplier.to);
        }
      }
    }
  }

  /// One realization can stand for several pairs of client and supplier; those behind the first
  /// need elements of their own.
  void AddParent(ItemIndex realization, ItemIndex client, ItemIndex supplier) {
    model::Element* element = reading_.items[realization].element;
    model::Element* parent = reading_.items[supplier].element;
    const model::Element* const present = element->Entity(properties::parent);
    if (present != nullptr && present != parent) {
      element = &reading_.model.Create(element->Metaclass());
    }
    element->SetEntity(properties::parent, parent);
    lists_.Add(client, element);
  }

  Reading& reading_;
  Lists lists_;
};

}  // namespace

void SetDependencies(Reading& reading) { Dependencies(reading).Set(); }

void SetGeneralizations(Reading& reading) { Generalizations(reading).Set(); }

}  // namespace xmi
