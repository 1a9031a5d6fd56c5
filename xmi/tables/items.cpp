#include "xmi/tables/items.h"

#include <algorithm>
#include <functional>

namespace xmi {

ItemIndex Items::Add(const Item& item) {
  items_.push_back(item);
  return static_cast<ItemIndex>(items_.size() - 1);
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

std::string Shortened(std::string_view name) {
  constexpr std::size_t most = 200;
  return name.size() <= most ? std::string(name) : std::string(name.substr(0, most)) + "...";
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
    for (std::size_t i = 0; i < items_.size(); ++i) {
      if (items_[i].element != nullptr) byAddress_.push_back(static_cast<ItemIndex>(i));
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

bool IsPackage(Word type) {
  return type == Word::kPackage || type == Word::kModel || type == Word::kProfile;
}

bool IsClassifier(Word type) {
  return type >= Word::kClass && type <= Word::kDeploymentSpecification;
}

bool IsDependency(Word type) { return type >= Word::kDependency && type <= Word::kPackageImport; }

bool IsValue(Word type) { return type >= Word::kLiteralInteger && type <= Word::kExpression; }

bool IsPart(Word type) {
  return IsValue(type) || type == Word::kTemplateBindingType ||
         type == Word::kTemplateParameterSubstitution;
}

bool IsTyped(Word type) {
  return type == Word::kProperty || type == Word::kExtensionEnd || type == Word::kPort ||
         type == Word::kParameter;
}

}  // namespace xmi
