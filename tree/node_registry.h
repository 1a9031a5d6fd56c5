// The nodes of the current run, by the model element that each was built for.
//
// The tag that a node leaves on its element is an address in decimal. A tag may outlive its run, or
// be written by somebody else, so an address is followed only when the registry knows it.
#pragma once

#include <cstdint>
#include <unordered_map>

#include "host/element.h"

namespace mdktoidl {

class Node;

class NodeRegistry {
 public:
  /// The next place in the order of creation, from 1.
  std::uint32_t NextSerial() { return ++lastSerial_; }
  std::uint32_t LastSerial() const { return lastSerial_; }

  /// Makes `node` the one of its element; a later node of the same element takes its place.
  void Register(mdk::IMdeEntity* element, Node* node) { nodes_[element] = node; }

  /// The node of an element, if its address is `address`; null otherwise.
  Node* Find(mdk::IMdeEntity* element, long address) const;

  /// Forgets all nodes; for the beginning and the end of a run.
  void Clear();

 private:
  std::unordered_map<mdk::IMdeEntity*, Node*> nodes_;
  std::uint32_t lastSerial_ = 0;
};

extern NodeRegistry nodeRegistry;

}  // namespace mdktoidl
