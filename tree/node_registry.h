// The nodes of the current run, by number.
//
// The tag that a node leaves on its element is the node's number. A tag may outlive its run, or be
// written by somebody else, so a number is followed only to a node of this run that was built for
// the very element that carries the tag.
#pragma once

#include <cstdint>
#include <unordered_set>
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

  /// Begins a declaration at the top of the tree, which is built from `element`.
  void BeginTree(const mdk::IMdeEntity* element);

  /// Takes an element for a declaration inside the one that was begun. False when that has one for
  /// it already: only a faulty model owns an element twice, and following it there would cost as
  /// much as there are ways to it, or never end.
  bool Take(const mdk::IMdeEntity* element) { return taken_.insert(element).second; }

  /// Forgets all nodes; for the beginning and the end of a run.
  void Clear();

 private:
  std::vector<Node*> nodes_;  // by number; null for one that can't be found
  std::unordered_set<const mdk::IMdeEntity*> taken_;
};

extern NodeRegistry nodeRegistry;

}  // namespace mdktoidl
