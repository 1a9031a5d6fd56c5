#include "xmi/reading.h"

#include <algorithm>
#include <iterator>

namespace xmi {

pugi::xml_node Reading::RootNode(ItemIndex item) const {
  const auto found =
      std::lower_bound(roots.begin(), roots.end(), item,
                       [](const Root& root, ItemIndex wanted) { return root.item < wanted; });
  return found != roots.end() && found->item == item ? found->node : pugi::xml_node();
}

ItemIndex Reading::RootOf(ItemIndex item) const {
  const auto behind =
      std::upper_bound(roots.begin(), roots.end(), item,
                       [](ItemIndex before, const Root& root) { return before < root.item; });
  return std::prev(behind)->item;
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

void Reading::Refuse(const Location& place, const std::string& text) const {
  throw ReadError(place, text);
}

}  // namespace xmi
