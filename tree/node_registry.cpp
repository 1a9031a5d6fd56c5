#include "tree/node_registry.h"

#include <cstdint>
#include <utility>

namespace mdktoidl {

NodeRegistry nodeRegistry;

/// Where the element stands, or the free cell where it would. Neighbours in memory, which are asked
/// for one after the other, stand side by side, a few of them; these groups are spread.
std::size_t NodeRegistry::PlaceOf(const mdk::IMdeEntity* element) const {
  constexpr std::uint64_t spread = 0x9e3779b97f4a7c15u;
  constexpr int usefulBits = 32;
  constexpr std::size_t elementSize = 32;  // at least, of any host
  constexpr std::size_t groupSize = 4;
  const auto number = reinterpret_cast<std::uintptr_t>(element) / elementSize;
  const std::size_t group = number / groupSize * spread >> usefulBits;
  const std::size_t mask = cells_.size() - 1;
  std::size_t place = (group * groupSize + number % groupSize) & mask;
  while (cells_[place].element != nullptr && cells_[place].element != element) {
    place = (place + 1) & mask;
  }
  return place;
}

/// The cell of an element, made when there is none. Valid until the next call.
NodeRegistry::Cell& NodeRegistry::CellOf(const mdk::IMdeEntity* element) {
  if (2 * used_ >= cells_.size()) Grow();
  Cell& cell = cells_[PlaceOf(element)];
  if (cell.element == nullptr) ++used_;
  cell.element = element;
  return cell;
}

Node* NodeRegistry::Find(const mdk::IMdeEntity* element) const {
  return cells_.empty() ? nullptr : cells_[PlaceOf(element)].node;
}

void NodeRegistry::BeginTree(const mdk::IMdeEntity* element) {
  ++tree_;
  Take(element);
}

bool NodeRegistry::Take(const mdk::IMdeEntity* element) {
  return std::exchange(CellOf(element).tree, tree_) != tree_;
}

void NodeRegistry::Clear() {
  cells_ = {};
  used_ = 0;
  lastSerial_ = 0;
  tree_ = 0;
  memory_.release();
}

void NodeRegistry::Grow() {
  constexpr std::size_t smallest = 256;
  const std::size_t size = cells_.empty() ? smallest : 2 * cells_.size();
  const std::vector<Cell> old = std::exchange(cells_, std::vector<Cell>(size));
  for (const Cell& cell : old) {
    if (cell.element != nullptr) cells_[PlaceOf(cell.element)] = cell;
  }
}

}  // namespace mdktoidl
