#include "xmi/tables/reading.h"

#include <algorithm>

namespace xmi {

std::vector<Root>::const_iterator Reading::RootBehind(ItemIndex item) const {
  return std::upper_bound(roots.begin(), roots.end(), item,
                          [](ItemIndex before, const Root& root) { return before < root.item; });
}

pugi::xml_node Reading::RootNode(ItemIndex item) const {
  const auto behind = RootBehind(item);
  if (behind == roots.begin()) return {};
  const Root& root = *std::prev(behind);
  return root.item == item ? root.node : pugi::xml_node();
}

std::string Reading::Describe(ItemIndex item) const {
  std::string_view kind = TextOf(items[item].type);
  if (items[item].element == nullptr) kind = "part";
  if (kind.empty()) kind = items[item].element->Metaclass().Text();
  const std::string name = items.ShortName(item);
  if (!items.NameOf(item).empty() && !name.empty()) return std::string(kind) + " " + name;
  const ItemIndex owner = items.ScopeOf(item);
  if (owner == kNoItem) {
    const std::string_view rootName = items.NameOf(item);
    return rootName.empty() ? "a " + std::string(kind)
                            : std::string(kind) + " " + Shortened(rootName);
  }
  const std::string ownerName = items.ShortName(owner);
  return "a " + std::string(kind) + " in " +
         (ownerName.empty() ? Shortened(items.NameOf(owner)) : ownerName);
}

void Reading::Refuse(const Location& location, const std::string& text) const {
  throw ReadError(location, text);
}

}  // namespace xmi
