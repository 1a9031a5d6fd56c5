#include "xmi/ids.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace xmi {
namespace {

constexpr std::size_t kSmallest = 64;
constexpr std::size_t kBytesPerId = 150;  // of a usual file; others make the table grow

}  // namespace

void Ids::AddFile(std::size_t bytes) {
  tables_.emplace_back();
  Grow(tables_.back(), std::bit_ceil(std::max(kSmallest, 2 * bytes / kBytesPerId)));
}

// The place where the id stands or, if it is not in the table, belongs.
std::size_t Ids::PlaceOf(const Table& table, std::string_view id, std::uint32_t hash) {
  const std::size_t mask = table.entries.size() - 1;
  std::size_t place = hash & mask;
  for (; table.entries[place].text != nullptr; place = (place + 1) & mask) {
    const Entry& entry = table.entries[place];
    if (entry.hash == hash && std::strncmp(entry.text, id.data(), id.size()) == 0 &&
        entry.text[id.size()] == '\0') {
      break;
    }
  }
  return place;
}

bool Ids::Add(FileIndex file, const char* id, std::uint32_t hash, IdTarget target) {
  Table& table = tables_[file];
  if (2 * table.count >= table.entries.size()) Grow(table, 2 * table.entries.size());
  Entry& entry = table.entries[PlaceOf(table, id, hash)];
  if (entry.text != nullptr) return false;
  entry = {id, hash, target};
  ++table.count;
  return true;
}

const IdTarget* Ids::Find(FileIndex file, std::string_view id) const {
  const Table& table = tables_[file];
  const Entry& entry = table.entries[PlaceOf(table, id, HashOf(id))];
  return entry.text == nullptr ? nullptr : &entry.target;
}

std::string_view Ids::IdOf(ItemIndex item) const {
  if (byItem_.empty()) {
    for (const Table& table : tables_) {
      for (const Entry& entry : table.entries) {
        if (entry.text != nullptr && !entry.target.inner) {
          const std::size_t item = entry.target.item;
          if (byItem_.size() <= item) byItem_.resize(item + 1);
          byItem_[item] = entry.text;
        }
      }
    }
  }
  const char* const id = item < byItem_.size() ? byItem_[item] : nullptr;
  return id == nullptr ? std::string_view() : id;
}

void Ids::Grow(Table& table, std::size_t size) {
  std::vector<Entry> old(size);
  old.swap(table.entries);
  const std::size_t mask = size - 1;
  for (const Entry& entry : old) {
    if (entry.text == nullptr) continue;
    std::size_t place = entry.hash & mask;
    while (table.entries[place].text != nullptr) place = (place + 1) & mask;
    table.entries[place] = entry;
  }
}

}  // namespace xmi
