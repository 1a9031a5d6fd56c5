#include "xmi/passes/ports.h"

#include <span>
#include <unordered_set>
#include <utility>

namespace xmi {
namespace {

bool IsRealization(Word type) {
  return type == Word::kRealization || type == Word::kInterfaceRealization ||
         type == Word::kSubstitution;
}

void Append(std::vector<ItemIndex>& list, const std::vector<ItemIndex>& added) {
  list.insert(list.end(), added.begin(), added.end());
}

void RemoveRepeated(std::vector<ItemIndex>& list) {
  std::unordered_set<ItemIndex> known;
  std::erase_if(list, [&](ItemIndex item) { return !known.insert(item).second; });
}

}  // namespace

void Ports::Set() {
  for (std::size_t i = 0; i < reading_.items.Size(); ++i) {
    const auto index = static_cast<ItemIndex>(i);
    if (reading_.items[index].type == Word::kPort) ports_.push_back({index, kNoItem});
  }
  if (ports_.empty()) return;
  Collect();
  for (const auto& [port, type] : ports_) SetOne(port, type);
}

void Ports::Collect() {
  std::size_t next = 0;
  std::size_t port = 0;
  for (std::size_t i = 0; i < reading_.items.Size(); ++i) {
    const auto index = static_cast<ItemIndex>(i);
    const std::span<const Link> links = reading_.LinksOf(index, next);
    CollectFrom(index, links);
    if (reading_.items[index].type != Word::kPort) continue;
    for (const Link& link : links) {
      const bool isType = link.feature == Word::kType && ports_[port].second == kNoItem;
      if (isType) ports_[port].second = link.to;
    }
    ++port;
  }
}

void Ports::CollectFrom(ItemIndex index, std::span<const Link> links) {
  const Item& item = reading_.items[index];
  const bool isUsage = item.type == Word::kUsage;
  if (item.type != Word::kGeneralization && !isUsage && !IsRealization(item.type)) return;
  std::vector<ItemIndex> clients;
  std::vector<ItemIndex> suppliers;
  for (const Link& link : links) {
    if (link.to == kNoItem) continue;
    if (link.feature == Word::kGeneral) own_[item.owner].generals.push_back(link.to);
    if (link.feature == Word::kClient) clients.push_back(link.to);
    const bool supplies = link.feature == Word::kSupplier || link.feature == Word::kContract;
    if (supplies) suppliers.push_back(link.to);
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

bool Ports::IsInterface(ItemIndex classifier) const {
  const Item& item = reading_.items[classifier];
  if (item.element == nullptr) return false;
  return item.type == Word::kInterface ||
         item.element->Application(stereotypes::corbaValue) != nullptr;
}

// Collects from the sources alone, so that a deep hierarchy costs a port what it gets from it.
Ports::Relations Ports::Inherited(ItemIndex classifier) {
  Relations result;
  std::vector<ItemIndex> open{SourceOf(classifier)};
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

// Goes up to the ancestors without recursion and decides on the way back. What specialises itself
// is not waited for.
ItemIndex Ports::SourceOf(ItemIndex classifier) {
  std::vector<ItemIndex> open{classifier};
  std::unordered_set<ItemIndex> entered;
  while (!open.empty()) {
    const ItemIndex current = open.back();
    if (sources_.count(current) != 0) {
      open.pop_back();
    } else if (!entered.insert(current).second) {
      SetSource(current);
      open.pop_back();
    } else {
      for (const ItemIndex general : own_[current].generals) {
        if (sources_.count(general) == 0 && entered.count(general) == 0) open.push_back(general);
      }
    }
  }
  return sources_[classifier];
}

void Ports::SetSource(ItemIndex classifier) {
  Relations& own = own_[classifier];
  std::vector<ItemIndex> generals;
  for (const ItemIndex general : own.generals) {
    const auto source = sources_.find(general);
    if (source != sources_.end() && source->second != kNoItem) generals.push_back(source->second);
  }
  RemoveRepeated(generals);
  own.generals = std::move(generals);
  const bool adds = !own.realized.empty() || !own.used.empty() || own.generals.size() > 1;
  const ItemIndex above = own.generals.empty() ? kNoItem : own.generals.front();
  sources_.emplace(classifier, adds ? classifier : above);
}

void Ports::SetOne(ItemIndex port, ItemIndex type) {
  Relations relations;
  if (type != kNoItem && reading_.items[type].element != nullptr) {
    relations = Inherited(type);
    if (IsInterface(type)) relations.realized = {type};
  }
  if (reading_.items[port].Has(Item::kConjugated)) std::swap(relations.realized, relations.used);
  const auto own = own_.find(port);
  if (own != own_.end()) {
    Append(relations.realized, own->second.realized);
    Append(relations.used, own->second.used);
  }
  const auto store = [&](Interfaces& interfaces, model::Symbol property) {
    RemoveRepeated(interfaces);
    std::vector<model::Element*> elements;
    for (const ItemIndex item : interfaces) {
      if (reading_.items[item].element != nullptr) elements.push_back(reading_.items[item].element);
    }
    reading_.items[port].element->SetEntities(property, elements);
  };
  store(relations.realized, properties::realized);
  store(relations.used, properties::required);
}

}  // namespace xmi
