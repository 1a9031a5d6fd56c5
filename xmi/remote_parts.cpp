#include "xmi/remote_parts.h"

namespace xmi {

void RemoteParts::Fetch() {
  FetchAll(reading_.values, Word::kNone);
  FetchAll(reading_.bindings, Word::kTemplateBindingType);
}

template <typename Part>
void RemoteParts::FetchAll(std::vector<Part>& parts, Word type) {
  std::size_t kept = 0;
  for (Part& part : parts) {
    if (part.href.empty() || FetchOne(part, type)) parts[kept++] = part;
  }
  parts.resize(kept);
}

template <typename Part>
bool RemoteParts::FetchOne(Part& part, Word type) {
  part.source = resolver_.FindRoot(part.item, TextOf(part.feature), part.href, type);
  if (part.source == kNoItem) return false;
  part.node = reading_.RootNode(part.source);
  part.type = reading_.items[part.source].type;
  return true;
}

}  // namespace xmi
