// The nodes of the current run, by number.
//
// The tag that a node leaves on its element is the node's number. A tag may outlive its run, or be
// written by somebody else, so a number is followed only to a node of this run that was built for
// the very element that carries the tag.
#pragma once

#include <cstdint>
#include <vector>

namespace mdk {
class IMdeEntity;
}

namespace mdktoidl {

class Node;

class NodeRegistry {
 public:
  /// The next number, from 1, in the order of creation.
  std::uint32_t NextSerial();
  std::uint32_t LastSerial() const { return static_cast<std::uint32_t>(nodes_.size()); }

  /// Lets a node be found by its number.
  void Register(Node* node);

  /// The node with a number, if it was built for `element`; null otherwise.
  Node* Find(const mdk::IMdeEntity* element, long serial) const;

  /// Forgets all nodes; for the beginning and the end of a run.
  void Clear();

 private:
  std::vector<Node*> nodes_;  // by number; null for one that can't be found
};

extern NodeRegistry nodeRegistry;

}  // namespace mdktoidl
