#include "tree/node_registry.h"

#include <utility>

namespace mdktoidl {

NodeRegistry nodeRegistry;

std::uintptr_t NodeRegistry::PlaceOf(const mdk::IMdeEntity* element) {
  return reinterpret_cast<std::uintptr_t>(element) / sizeof(void*);
}

/// The entry of an element, made when there is none.
NodeRegistry::Entry& NodeRegistry::EntryOf(const mdk::IMdeEntity* element) {
  const std::uintptr_t place = PlaceOf(element);
  Block& block = blocks_[place / std::tuple_size_v<Block>];
  return block[place % block.size()];
}

void NodeRegistry::Register(const mdk::IMdeEntity* element, Node* node) {
  nodes_.push_back(node);
  EntryOf(element).node = static_cast<std::uint32_t>(nodes_.size());
}

Node* NodeRegistry::Find(const mdk::IMdeEntity* element) const {
  const std::uintptr_t place = PlaceOf(element);
  const auto block = blocks_.find(place / std::tuple_size_v<Block>);
  if (block == blocks_.end()) return nullptr;
  const std::uint32_t node = block->second[place % std::tuple_size_v<Block>].node;
  return node == 0 ? nullptr : nodes_[node - 1];
}

void NodeRegistry::BeginTree(const mdk::IMdeEntity* element) {
  ++tree_;
  Take(element);
}

bool NodeRegistry::Take(const mdk::IMdeEntity* element) {
  return std::exchange(EntryOf(element).tree, tree_) != tree_;
}

void NodeRegistry::Clear() {
  blocks_ = decltype(blocks_)(&memory_);  // an empty one holds no memory of the run
  nodes_ = {};
  memory_.release();
  lastSerial_ = 0;
  tree_ = 0;
}

}  // namespace mdktoidl
