#include "xmi/remote_parts.h"

namespace xmi {

void RemoteParts::Fetch() {
  for (const auto& [item, node] : reading_.roots) roots_.emplace(item, node);
  std::erase_if(reading_.values, [this](ValueNode& value) {
    const bool isRemote = !value.href.empty();
    if (!FetchOne(value, TextOf(value.feature))) return true;
    if (isRemote) value.type = reading_.items[value.source].type;
    return false;
  });
  std::erase_if(reading_.bindings,
                [this](TemplateBinding& binding) { return !FetchOne(binding, "templateBinding"); });
}

template <typename Part>
bool RemoteParts::FetchOne(Part& part, std::string_view feature) {
  if (part.href.empty()) return true;
  const ItemIndex found = resolver_.Find(part.item, feature, part.href, true);
  if (found == kNoItem) return false;
  const auto root = roots_.find(found);
  if (root == roots_.end()) {
    resolver_.WarnMisplaced(part.item, part.item, found);
    return false;
  }
  part.node = root->second;
  part.source = found;
  return true;
}

}  // namespace xmi
