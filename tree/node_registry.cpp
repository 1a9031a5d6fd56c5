#include "tree/node_registry.h"

namespace mdktoidl {

NodeRegistry nodeRegistry;

Node* NodeRegistry::Find(mdk::IMdeEntity* element, long address) const {
  const auto entry = nodes_.find(element);
  if (entry == nodes_.end()) return nullptr;
  return reinterpret_cast<std::intptr_t>(entry->second) == address ? entry->second : nullptr;
}

void NodeRegistry::Clear() {
  nodes_.clear();
  lastSerial_ = 0;
}

}  // namespace mdktoidl
