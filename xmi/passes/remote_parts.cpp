#include "xmi/passes/remote_parts.h"

namespace xmi {

void RemoteParts::Fetch() {
  Keep(reading_.values, [this](ValueNode& value) {
    if (!Fetch(value, TextOf(value.feature), Word::kNone)) return false;
    value.type = reading_.items[value.source].type;
    return true;
  });
  Keep(reading_.bindings, [this](Part& binding) {
    return Fetch(binding, "templateBinding", Word::kTemplateBindingType);
  });
}

template <typename Each, typename Fetcher>
void RemoteParts::Keep(std::vector<Each>& parts, Fetcher fetch) {
  std::size_t kept = 0;
  for (Each& part : parts) {
    if (part.href.empty() || fetch(part)) parts[kept++] = part;
  }
  parts.resize(kept);
}

bool RemoteParts::Fetch(Part& part, std::string_view feature, Word type) {
  part.source = resolver_.FindRoot(part.item, feature, part.href, type);
  if (part.source == kNoItem) return false;
  part.node = reading_.RootNode(part.source);
  return true;
}

}  // namespace xmi
