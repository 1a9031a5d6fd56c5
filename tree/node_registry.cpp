#include "tree/node_registry.h"

#include "tree/node.h"

namespace mdktoidl {

NodeRegistry nodeRegistry;

std::uint32_t NodeRegistry::NextSerial() {
  nodes_.push_back(nullptr);
  return LastSerial();
}

void NodeRegistry::Register(Node* node) { nodes_[node->Serial() - 1] = node; }

Node* NodeRegistry::Find(const mdk::IMdeEntity* element, long serial) const {
  if (serial < 1 || serial > static_cast<long>(nodes_.size())) return nullptr;
  Node* node = nodes_[static_cast<std::size_t>(serial - 1)];
  return node != nullptr && node->Entity() == element ? node : nullptr;
}

void NodeRegistry::BeginTree(const mdk::IMdeEntity* element) {
  taken_.clear();
  taken_.insert(element);
}

void NodeRegistry::Clear() {
  nodes_ = {};
  taken_ = {};
}

}  // namespace mdktoidl
