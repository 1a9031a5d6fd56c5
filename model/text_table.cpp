#include "model/text_table.h"

#include <cstring>
#include <utility>

namespace model {

namespace {

template <typename Word>
std::uint64_t Load(const char* bytes) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

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

/// Whether two texts are the same; short ones, as nearly all are, without a call.
bool Same(std::string_view left, std::string_view right) {
  const std::size_t size = left.size();
  if (size != right.size()) return false;
  if (size < 8 || size > 24) return left == right;
  std::uint64_t difference = 0;
  const auto compare = [&](std::size_t at) {
    difference |= Load<std::uint64_t>(left.data() + at) ^ Load<std::uint64_t>(right.data() + at);
  };
  compare(0);
  if (size > 16) compare(8);
  compare(size - 8);
  return difference == 0;
}

}  // namespace

TextTable::TextTable() : cells_(512) {}

/// Where the text stands, or the free cell where it would.
std::size_t TextTable::Place(std::string_view text, std::uint32_t hash) const {
  const std::size_t mask = cells_.size() - 1;
  std::size_t place = hash & mask;
  while (cells_[place].number != free &&
         (cells_[place].hash != hash || !Same(texts_[cells_[place].number], text))) {
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
