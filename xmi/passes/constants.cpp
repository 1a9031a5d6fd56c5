#include "xmi/passes/constants.h"

namespace xmi {

bool Constants::IsConstant(ItemIndex index) const {
  const Item& item = reading_.items[index];
  if (item.element == nullptr || item.type != Word::kProperty) return false;
  const model::Element* value =
      item.element->TaggedValue(stereotypes::corbaAttribute, tags::isConstant);
  return value != nullptr && value->Text(properties::name) != "false";
}

void Constants::Index() {
  if (isIndexed_) return;
  isIndexed_ = true;
  for (std::size_t i = 0; i < reading_.items.Size(); ++i) {
    const auto index = static_cast<ItemIndex>(i);
    const Item& item = reading_.items[index];
    const std::string_view name = reading_.items.NameOf(index);
    if (item.type == Word::kEnumerationLiteral) literals_.emplace(Key{item.owner, name}, index);
    if (!IsConstant(index)) continue;
    constants_.emplace(Key{item.owner, name}, index);
    constants_.emplace(Key{reading_.items.ScopeOf(index), name}, index);
  }
}

ItemIndex Constants::Find(ItemIndex from, std::string_view name) {
  Index();
  if (name.find("::") != std::string_view::npos) return FindQualified(name);
  for (ItemIndex scope = from; scope != kNoItem; scope = reading_.items[scope].owner) {
    const auto found = constants_.find({scope, name});
    if (found != constants_.end()) return found->second;
  }
  return kNoItem;
}

ItemIndex Constants::FindQualified(std::string_view name) {
  if (!isQualifiedIndexed_) {
    isQualifiedIndexed_ = true;
    for (std::size_t i = 0; i < reading_.items.Size(); ++i) {
      const auto index = static_cast<ItemIndex>(i);
      if (!IsConstant(index)) continue;
      const std::string path = reading_.items.QualifiedName(index);
      ItemIndex root = index;
      while (reading_.items[root].owner != kNoItem) root = reading_.items[root].owner;
      qualified_.emplace(path, index);
      qualified_.emplace(std::string(reading_.items.NameOf(root)) + "::" + path, index);
      const ItemIndex owner = reading_.items[index].owner;
      if (owner == kNoItem || !reading_.items[owner].Has(Item::kHolder)) continue;
      qualified_.emplace(
          reading_.items.QualifiedName(owner) + "::" + std::string(reading_.items.NameOf(index)),
          index);
    }
  }
  if (name.substr(0, 2) == "::") name.remove_prefix(2);
  const auto found = qualified_.find(std::string(name));
  return found == qualified_.end() ? kNoItem : found->second;
}

ItemIndex Constants::FindLiteral(ItemIndex enumeration, std::string_view name) {
  if (enumeration == kNoItem) return kNoItem;
  Index();
  std::string_view last = name;
  const std::size_t colons = name.rfind("::");
  if (colons != std::string_view::npos) {
    std::string_view path = name.substr(0, colons);
    if (path.substr(0, 2) == "::") path.remove_prefix(2);
    const ItemIndex scope = reading_.items.ScopeOf(enumeration);
    const bool matches = path == reading_.items.NameOf(enumeration) ||
                         path == reading_.items.QualifiedName(enumeration) ||
                         (scope != kNoItem && path == reading_.items.QualifiedName(scope));
    if (!matches) return kNoItem;
    last = name.substr(colons + 2);
  }
  const auto found = literals_.find({enumeration, last});
  return found == literals_.end() ? kNoItem : found->second;
}

}  // namespace xmi
