#include "xmi/tables/reading.h"

#include <algorithm>
#include <iterator>

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

model::Element& Reading::IdentOf(ItemIndex designated) {
  if (idents.size() <= designated) idents.resize(items.Size());
  model::Element*& ident = idents[designated];
  if (ident == nullptr) {
    ident = &model.Create(metaclasses::ident);
    ident->SetTextView(properties::name, items.NameOf(designated));
    ident->SetEntity(properties::definition, items[designated].element);
  }
  return *ident;
}

std::string Reading::Describe(ItemIndex item) const {
  std::string kind(TextOf(items[item].type));
  if (items[item].element == nullptr) kind = "part";
  if (kind.empty()) kind = items[item].element->Metaclass().Text();
  const std::string_view name = items.NameOf(item);
  const std::string path = items.ShortName(item);
  if (!name.empty() && !path.empty()) return kind + " " + path;
  const ItemIndex owner = items.ScopeOf(item);
  if (owner == kNoItem) return name.empty() ? "a " + kind : kind + " " + Shortened(name);
  const std::string ownerPath = items.ShortName(owner);
  return "a " + kind + " in " + (ownerPath.empty() ? Shortened(items.NameOf(owner)) : ownerPath);
}

}  // namespace xmi
