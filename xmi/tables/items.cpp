#include "xmi/tables/items.h"

#include <functional>
#include <span>
#include <unordered_set>

namespace xmi {

ItemIndex Items::Add(const Item& item) {
  items_.push_back(item);
  return Size() - 1;
}

std::string_view Items::NameOf(ItemIndex index) const {
  const model::Element* element = items_[index].element;
  return element == nullptr ? std::string_view() : element->Text(properties::name);
}

ItemIndex Items::ScopeOf(ItemIndex index) const {
  const ItemIndex owner = items_[index].owner;
  if (owner == kNoItem || !items_[owner].Has(Item::kHolder)) return owner;
  return items_[owner].owner;
}

ItemIndex Items::RootOf(ItemIndex index) const {
  while (items_[index].owner != kNoItem) index = items_[index].owner;
  return index;
}

std::string Items::QualifiedName(ItemIndex index) const {
  std::vector<std::string_view> names;
  for (ItemIndex scope = ScopeOf(index); scope != kNoItem; scope = ScopeOf(index)) {
    names.push_back(NameOf(index));
    index = scope;
  }
  std::string result;
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    if (!result.empty()) result += "::";
    result += *name;
  }
  return result;
}

std::string Items::ShortName(ItemIndex index) const {
  constexpr std::size_t mostNames = 20;
  std::string result;
  std::size_t names = 0;
  for (ItemIndex scope = ScopeOf(index); scope != kNoItem; scope = ScopeOf(index)) {
    if (++names > mostNames) return "...::" + result;
    result = Shortened(NameOf(index)) + (result.empty() ? "" : "::") + result;
    index = scope;
  }
  return result;
}

void Items::Renumber(const std::vector<ItemIndex>& order, const std::vector<ItemIndex>& numbers) {
  std::vector<Item> renumbered;
  renumbered.reserve(order.size());
  for (const ItemIndex old : order) {
    Item& item = renumbered.emplace_back(items_[old]);
    if (item.owner != kNoItem) item.owner = numbers[item.owner];
  }
  items_.swap(renumbered);
}

ItemIndex Items::Find(const model::Element& element) const {
  const std::less<const model::Element*> before;
  const auto address = [this](ItemIndex index) { return items_[index].element; };
  if (sortedSize_ != items_.size()) {
    sortedSize_ = items_.size();
    byAddress_.clear();
    byAddress_.reserve(items_.size());
    for (ItemIndex index = 0; index < Size(); ++index) {
      if (address(index) != nullptr) byAddress_.push_back(index);
    }
    // Elements are made one behind the other, so there is nearly always nothing to sort.
    const auto isBefore = [&](ItemIndex a, ItemIndex b) { return before(address(a), address(b)); };
    if (!std::is_sorted(byAddress_.begin(), byAddress_.end(), isBefore)) {
      std::sort(byAddress_.begin(), byAddress_.end(), isBefore);
    }
  }
  const auto found = std::lower_bound(
      byAddress_.begin(), byAddress_.end(), &element,
      [&](ItemIndex a, const model::Element* wanted) { return before(address(a), wanted); });
  return found != byAddress_.end() && address(*found) == &element ? *found : kNoItem;
}

std::string Shortened(std::string_view name) {
  constexpr std::size_t most = 200;
  return name.size() <= most ? std::string(name) : std::string(name.substr(0, most)) + "...";
}

void RemoveRepeated(std::vector<ItemIndex>& list) {
  if (list.size() < 2) return;
  std::unordered_set<ItemIndex> known;
  std::erase_if(list, [&](ItemIndex item) { return !known.insert(item).second; });
}

void Lists::Store(const Items& items, model::Symbol property) const {
  if (entries_.empty()) return;
  std::vector<std::uint32_t> ends(items.Size() + 1, 0);
  for (const Entry& entry : entries_) ++ends[entry.owner + 1];
  for (std::size_t i = 1; i < ends.size(); ++i) ends[i] += ends[i - 1];
  // Each owner's end starts at its begin and moves on while the entries are put there.
  std::vector<model::Element*> sorted(entries_.size());
  for (const Entry& entry : entries_) sorted[ends[entry.owner]++] = entry.element;
  std::uint32_t begin = 0;
  for (ItemIndex owner = 0; begin < sorted.size(); ++owner) {
    const std::uint32_t end = ends[owner];
    if (end == begin) continue;
    items[owner].element->SetEntities(property, std::span(sorted).subspan(begin, end - begin));
    begin = end;
  }
}

}  // namespace xmi
