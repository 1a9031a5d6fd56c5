#include "xmi/remote_parts.h"

namespace xmi {

void RemoteParts::Fetch() {
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
  part.source = resolver_.FindRoot(part.item, feature, part.href);
  if (part.source == kNoItem) return false;
  part.node = reading_.RootNode(part.source);
  return true;
}

}  // namespace xmi
