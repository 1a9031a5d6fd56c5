// What ports provide and require, which UML derives from their types and dependencies.
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "xmi/passes/passes.h"

namespace xmi {
namespace {

using Indexes = std::vector<ItemIndex>;

bool IsRealization(Word type) {
  return type == Word::kRealization || type == Word::kInterfaceRealization ||
         type == Word::kSubstitution;
}

void Append(Indexes& list, const Indexes& added) {
  list.insert(list.end(), added.begin(), added.end());
}

class Ports {
 public:
  explicit Ports(Reading& reading) : reading_(reading) {}

  void Set() {
    reading_.ForEachItem([&](ItemIndex index, std::span<const Link> links) {
      CollectFrom(index, links);
      if (reading_.items[index].type == Word::kPort) ports_.emplace_back(index, TypeOf(links));
    });
    for (const auto& [port, type] : ports_) SetOne(port, type);
  }

 private:
  struct Relations {
    Indexes realized;
    Indexes used;
    Indexes generals;
  };

  static ItemIndex TypeOf(std::span<const Link> links) {
    for (const Link& link : links) {
      if (link.feature == Word::kType && link.to != kNoItem) return link.to;
    }
    return kNoItem;
  }

  void CollectFrom(ItemIndex index, std::span<const Link> links) {
    const Item& item = reading_.items[index];
    const bool isUsage = item.type == Word::kUsage;
    if (item.type != Word::kGeneralization && !isUsage && !IsRealization(item.type)) return;
    Indexes clients;
    Indexes suppliers;
    for (const Link& link : links) {
      if (link.to == kNoItem) continue;
      if (link.feature == Word::kGeneral) own_[item.owner].generals.push_back(link.to);
      if (link.feature == Word::kClient) clients.push_back(link.to);
      if (IsSupplierFeature(link.feature)) suppliers.push_back(link.to);
    }
    const bool isOwners = clients.empty() && !item.Has(Item::kMember) && item.owner != kNoItem;
    if (isOwners) clients.push_back(item.owner);
    for (const ItemIndex client : clients) {
      const bool isPort = reading_.items[client].type == Word::kPort;
      Relations& relations = own_[client];
      for (const ItemIndex supplier : suppliers) {
        if (!isPort && !IsInterface(supplier)) continue;
        (isUsage ? relations.used : relations.realized).push_back(supplier);
      }
    }
  }

  bool IsInterface(ItemIndex classifier) const {
    const Item& item = reading_.items[classifier];
    if (item.element == nullptr) return false;
    return item.type == Word::kInterface ||
           item.element->Application(stereotypes::corbaValue) != nullptr;
  }

  /// The relations of a classifier and its ancestors. They are collected from the sources alone, so
  /// that a deep hierarchy costs a port what it gets from it.
  Relations Inherited(ItemIndex classifier) {
    Relations result;
    Indexes open{SourceOf(classifier)};
    std::unordered_set<ItemIndex> entered{kNoItem};
    while (!open.empty()) {
      const ItemIndex current = open.back();
      open.pop_back();
      if (!entered.insert(current).second) continue;
      const Relations& relations = own_[current];
      Append(result.realized, relations.realized);
      Append(result.used, relations.used);
      open.insert(open.end(), relations.generals.rbegin(), relations.generals.rend());
    }
    return result;
  }

  /// The nearest of a classifier and its ancestors that adds to what a port gets; `kNoItem` when
  /// none does. Goes up to the ancestors without recursion and decides on the way back. What
  /// specialises itself is not waited for.
  ItemIndex SourceOf(ItemIndex classifier) {
    Indexes open{classifier};
    std::unordered_set<ItemIndex> entered;
    while (!open.empty()) {
      const ItemIndex current = open.back();
      if (sources_.contains(current)) {
        open.pop_back();
      } else if (!entered.insert(current).second) {
        SetSource(current);
        open.pop_back();
      } else {
        for (const ItemIndex general : own_[current].generals) {
          const bool isNew = !sources_.contains(general) && !entered.contains(general);
          if (isNew) open.push_back(general);
        }
      }
    }
    return sources_[classifier];
  }

  void SetSource(ItemIndex classifier) {
    Relations& own = own_[classifier];
    Indexes generals;
    for (const ItemIndex general : own.generals) {
      const auto source = sources_.find(general);
      const bool adds = source != sources_.end() && source->second != kNoItem;
      if (adds) generals.push_back(source->second);
    }
    RemoveRepeated(generals);
    own.generals = std::move(generals);
    const bool adds = !own.realized.empty() || !own.used.empty() || own.generals.size() > 1;
    const ItemIndex above = own.generals.empty() ? kNoItem : own.generals.front();
    sources_.emplace(classifier, adds ? classifier : above);
  }

  void SetOne(ItemIndex port, ItemIndex type) {
    Relations relations;
    if (type != kNoItem && reading_.items[type].element != nullptr) {
      relations = Inherited(type);
      // An interface provides itself and nothing else, but what it uses is required.
      if (IsInterface(type)) relations.realized = {type};
    }
    if (reading_.items[port].Has(Item::kConjugated)) std::swap(relations.realized, relations.used);
    // What the port itself is the client of is meant as it stands, conjugated or not.
    const auto own = own_.find(port);
    if (own != own_.end()) {
      Append(relations.realized, own->second.realized);
      Append(relations.used, own->second.used);
    }
    Store(port, relations.realized, properties::realized);
    Store(port, relations.used, properties::required);
  }

  void Store(ItemIndex port, Indexes& interfaces, model::Symbol property) {
    RemoveRepeated(interfaces);
    std::vector<model::Element*> elements;
    for (const ItemIndex item : interfaces) {
      if (reading_.items[item].element != nullptr) elements.push_back(reading_.items[item].element);
    }
    reading_.items[port].element->SetEntities(property, elements);
  }

  Reading& reading_;
  std::unordered_map<ItemIndex, Relations> own_;
  std::unordered_map<ItemIndex, ItemIndex> sources_;
  std::vector<std::pair<ItemIndex, ItemIndex>> ports_;  // with their types
};

}  // namespace

void SetPorts(Reading& reading) {
  const Items& items = reading.items;
  for (ItemIndex index = 0; index < items.Size(); ++index) {
    if (items[index].type == Word::kPort) return Ports(reading).Set();  // few models have any
  }
}

}  // namespace xmi
