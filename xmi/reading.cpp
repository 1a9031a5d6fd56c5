#include "xmi/reading.h"

namespace xmi {

std::string Reading::Describe(ItemIndex item) const {
  std::string_view kind = TextOf(items[item].type);
  if (items[item].element == nullptr) kind = "part";
  if (kind.empty()) kind = items[item].element->Metaclass().Text();
  const std::string name = items.QualifiedName(item);
  if (!items.NameOf(item).empty() && !name.empty()) return std::string(kind) + " " + name;
  const ItemIndex owner = items.ScopeOf(item);
  if (owner == kNoItem) return std::string(kind) + " " + std::string(items.NameOf(item));
  const std::string ownerName = items.QualifiedName(owner);
  return "a " + std::string(kind) + " in " +
         (ownerName.empty() ? std::string(items.NameOf(owner)) : ownerName);
}

}  // namespace xmi
