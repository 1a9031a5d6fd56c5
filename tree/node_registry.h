// The nodes of the current run: their numbers, their memory, and the way from a model element to
// its node.
//
// The model is left alone: no mark on an element could be trusted to be of this run, and marking
// each of a million elements would cost more than all questions about them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <unordered_map>
#include <vector>

namespace mdk {
class IMdeEntity;
}

namespace mdktoidl {

class Node;

class NodeRegistry {
 public:
  /// The next number, from 1, in the order of creation.
  std::uint32_t NextSerial() { return ++lastSerial_; }
  std::uint32_t LastSerial() const { return lastSerial_; }

  /// Lets a node be found by its element. Of several nodes of one element the last counts.
  void Register(const mdk::IMdeEntity* element, Node* node);

  /// The node that was registered for an element; null when there is none.
  Node* Find(const mdk::IMdeEntity* element) const;

  /// Begins a declaration at the top of the tree, which is built from `element`.
  void BeginTree(const mdk::IMdeEntity* element);

  /// Takes an element for a declaration inside the one that was begun. False when that has one for
  /// it already: only a faulty model owns an element twice, and following it there would cost as
  /// much as there are ways to it, or never end.
  bool Take(const mdk::IMdeEntity* element);

  /// Memory for a node, until `Clear`. Nodes made one after the other lie side by side, which is
  /// the order in which they are walked.
  void* Allocate(std::size_t size) { return memory_.allocate(size); }

  /// Forgets all nodes, which must be destroyed; for the beginning and the end of a run.
  void Clear();

 private:
  struct Entry {
    std::uint32_t node = 0;  // its place in `nodes_`, from 1; 0 for an element without
    std::uint32_t tree = 0;  // for which the element was taken last; 0 for none
  };
  /// What is known of the elements in a stretch of memory, by their places in it. These are counted
  /// in pointers: an element has one at least. Neighbours are asked for one after the other; but in
  /// some hosts they lie far apart, so a stretch is short.
  using Block = std::array<Entry, 16>;

  static std::uintptr_t PlaceOf(const mdk::IMdeEntity* element);
  Entry& EntryOf(const mdk::IMdeEntity* element);

  std::pmr::monotonic_buffer_resource memory_;
  std::pmr::unordered_map<std::uintptr_t, Block> blocks_{&memory_};
  std::vector<Node*> nodes_;
  std::uint32_t lastSerial_ = 0;
  std::uint32_t tree_ = 0;  // the number of the tree that was begun last
};

extern NodeRegistry nodeRegistry;

}  // namespace mdktoidl
