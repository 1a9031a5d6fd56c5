#include "xmi/reading.h"

#include <algorithm>

namespace xmi {

pugi::xml_node Reading::RootNode(ItemIndex item) const {
  const auto found =
      std::lower_bound(roots.begin(), roots.end(), item,
                       [](const Root& root, ItemIndex wanted) { return root.item < wanted; });
  return found != roots.end() && found->item == item ? found->node : pugi::xml_node();
}

std::string Reading::Describe(ItemIndex item) const {
  std::string_view kind = TextOf(items[item].type);
  if (items[item].element == nullptr) kind = "part";
  if (kind.empty()) kind = items[item].element->Metaclass().Text();
  const std::string name = items.ShortName(item);
  if (!items.NameOf(item).empty() && !name.empty()) return std::string(kind) + " " + name;
  const ItemIndex owner = items.ScopeOf(item);
  if (owner == kNoItem) return std::string(kind) + " " + Shortened(items.NameOf(item));
  const std::string ownerName = items.ShortName(owner);
  return "a " + std::string(kind) + " in " +
         (ownerName.empty() ? Shortened(items.NameOf(owner)) : ownerName);
}

void Reading::Refuse(const Location& place, const std::string& text) const {
  throw ReadError(place, text);
}

}  // namespace xmi
