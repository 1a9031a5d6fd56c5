#include "model/text_table.h"

#include <utility>

#include "model/same_text.h"

namespace model {

namespace {

std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) {
  hash = (hash ^ word) * 0x9e3779b97f4a7c15u;
  return hash ^ (hash >> 29);
}

/// Reads eight bytes at a time; the last step may read bytes again, which does no harm.
std::uint32_t Hash(std::string_view text) {
  const char* bytes = text.data();
  const std::size_t size = text.size();
  std::uint64_t hash = size;
  if (size >= 8) {
    for (std::size_t at = 0; at + 8 < size; at += 8) {
      hash = Mix(hash, Load<std::uint64_t>(bytes + at));
    }
    hash = Mix(hash, Load<std::uint64_t>(bytes + size - 8));
  } else if (size >= 4) {
    const std::uint64_t end = Load<std::uint32_t>(bytes + size - 4);
    hash = Mix(hash, Load<std::uint32_t>(bytes) | end << 32);
  } else {
    for (const char c : text) hash = Mix(hash, static_cast<unsigned char>(c));
  }
  return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

}  // namespace

TextTable::TextTable() : cells_(512) {}

/// Where the text stands, or the free cell where it would.
std::size_t TextTable::Place(std::string_view text, std::uint32_t hash) const {
  const std::size_t mask = cells_.size() - 1;
  std::size_t place = hash & mask;
  while (cells_[place].number != free &&
         (cells_[place].hash != hash || !SameText(texts_[cells_[place].number], text))) {
    place = (place + 1) & mask;
  }
  return place;
}

std::optional<std::uint32_t> TextTable::Find(std::string_view text) const {
  const std::uint32_t number = cells_[Place(text, Hash(text))].number;
  if (number == free) return std::nullopt;
  return number;
}

std::uint32_t TextTable::Enter(std::string_view text) {
  const std::uint32_t hash = Hash(text);
  std::size_t place = Place(text, hash);
  if (cells_[place].number != free) return cells_[place].number;
  if (2 * (texts_.size() + 1) > cells_.size()) {
    Grow();
    place = Place(text, hash);
  }
  const auto number = static_cast<std::uint32_t>(texts_.size());
  texts_.push_back(arena_.Copy(text));  // first, because it may fail
  cells_[place] = {hash, number};
  return number;
}

void TextTable::Grow() {
  const std::vector<Cell> old = std::exchange(cells_, std::vector<Cell>(2 * cells_.size()));
  for (const Cell& cell : old) {
    if (cell.number != free) cells_[Place(texts_[cell.number], cell.hash)] = cell;
  }
}

}  // namespace model
