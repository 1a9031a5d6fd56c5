#include "command/declared_names.h"

#include <utility>

#include "command/idl_identifier.h"

namespace command {
namespace {

std::uint32_t HashOf(std::string_view name) {
  return static_cast<std::uint32_t>(NameHash()(name) >> 32);
}

}  // namespace

DeclaredNames::DeclaredNames(const Declarations& declarations) : cells_(256) {
  numbers_.reserve(declarations.Size());
  for (DeclarationIndex index = 0; index < declarations.Size(); ++index) {
    numbers_.push_back(Enter(declarations.Name(index)));
  }
}

NameNumber DeclaredNames::Find(std::string_view name) const {
  return cells_[PlaceOf(name, HashOf(name))].number;
}

NameNumber DeclaredNames::Enter(std::string_view name) {
  if (name.empty()) return kNoName;
  if (2 * names_.size() >= cells_.size()) Grow();
  const std::uint32_t hash = HashOf(name);
  Cell& cell = cells_[PlaceOf(name, hash)];
  if (cell.number == kNoName) {
    cell = {hash, static_cast<NameNumber>(names_.size())};
    names_.push_back(name);
  }
  return cell.number;
}

/// Where the name stands, or the free cell where it would.
std::size_t DeclaredNames::PlaceOf(std::string_view name, std::uint32_t hash) const {
  const std::size_t mask = cells_.size() - 1;
  std::size_t place = hash & mask;
  while (cells_[place].number != kNoName &&
         (cells_[place].hash != hash || !IsSameName(names_[cells_[place].number], name))) {
    place = (place + 1) & mask;
  }
  return place;
}

void DeclaredNames::Grow() {
  const std::vector<Cell> old = std::exchange(cells_, std::vector<Cell>(2 * cells_.size()));
  const std::size_t mask = cells_.size() - 1;
  for (const Cell& cell : old) {
    if (cell.number == kNoName) continue;
    std::size_t place = cell.hash & mask;
    while (cells_[place].number != kNoName) place = (place + 1) & mask;
    cells_[place] = cell;
  }
}

}  // namespace command
