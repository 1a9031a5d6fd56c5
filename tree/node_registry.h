// The nodes of the current run: their numbers, their names, their memory, what they use, and the
// way from a model element to its node.
//
// The model is left alone: no mark on an element could be trusted to be of this run, and marking
// each of a million elements would cost more than all questions about them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory_resource>
#include <span>
#include <string_view>
#include <vector>

#include "tree/use.h"

namespace mdk {
class IMdeEntity;
}

namespace mdktoidl {

class Node;

/// What is known of an element of the model.
struct ElementEntry {
  const mdk::IMdeEntity* element = nullptr;  // null for a free place of the table
  std::uint32_t node = 0;                    // the node's serial + 1; 0 for an element without
  std::uint32_t tree = 0;                    // for which the element was taken last; 0 for none
};

/// The elements that are known. Hosts make elements one after the other, and they are asked for in
/// that order, too: those that lie together in memory have places close to each other here.
class ElementTable {
 public:
  /// All places, those that are free included.
  std::span<ElementEntry> Entries() { return entries_; }
  /// The entry of an element; null when there is none.
  const ElementEntry* Find(const mdk::IMdeEntity* element) const;
  /// The same, made when there is none. Valid until the next is made.
  ElementEntry& Make(const mdk::IMdeEntity* element);

 private:
  std::size_t PlaceOf(const mdk::IMdeEntity* element) const;
  void Grow();

  std::vector<ElementEntry> entries_;  // a power of two of them, or none
  std::size_t used_ = 0;
};

class NodeRegistry {
 public:
  /// Numbers a node, from 0, in the order of creation, and notes its name.
  std::uint32_t Enter(Node* node, std::string_view name);
  /// Notes that a node is written by another name.
  void Rename(std::uint32_t serial, std::string_view name);

  /// Has the nodes in another order. Each must know its new number, which is its place there.
  void Reorder(std::vector<Node*> order);

  /// All nodes by their numbers, so that what encloses others comes before them.
  const std::vector<Node*>& Nodes() const { return nodes_; }
  /// The hashes of their names, by the same numbers: equal for names that IDL takes for one.
  const std::vector<std::uint32_t>& NameHashes() const { return nameHashes_; }
  /// The numbers of those whose names may be no identifiers, or keywords.
  const std::vector<std::uint32_t>& DoubtfulNames() const { return doubtfulNames_; }

  /// A new entry in the record of uses, all of it zero.
  Use& MakeUse() { return uses_.emplace_back(); }

  /// Lets a node be found by its element. Of several nodes of one element the last counts.
  void Register(const mdk::IMdeEntity* element, std::uint32_t serial);

  /// The node that was registered for an element; null when there is none.
  Node* Find(const mdk::IMdeEntity* element) const;

  /// Begins a declaration at the top of the tree, which is built from `element`.
  void BeginTree(const mdk::IMdeEntity* element);

  /// Takes an element for a declaration inside the one that was begun. False when that has one for
  /// it already: only a faulty model owns an element twice, and following it there would cost as
  /// much as there are ways to it, or never end.
  bool Take(const mdk::IMdeEntity* element);

  /// Memory for a node or what it knows, until `Clear`. What is made one after the other lies side
  /// by side, which is the order in which it is walked. Nothing in it is destroyed.
  void* Allocate(std::size_t size) { return memory_.allocate(size); }
  /// Copies a text into that memory.
  std::string_view Store(std::string_view text);

  /// Forgets all nodes, which must be destroyed; for the beginning and the end of a run.
  void Clear();

 private:
  std::pmr::monotonic_buffer_resource memory_;
  std::deque<Use> uses_;
  ElementTable elements_;
  std::vector<Node*> nodes_;
  std::vector<std::uint32_t> nameHashes_;
  std::vector<std::uint32_t> doubtfulNames_;
  std::uint32_t tree_ = 0;  // the number of the tree that was begun last
};

extern NodeRegistry nodeRegistry;

/// Removes the tags by which other exporters lead from elements to declarations from the model that
/// `element` belongs to. This one writes none; others leave them behind when they are broken off.
void deleteNodeStereotypes(mdk::IMdeEntity* element);

}  // namespace mdktoidl
