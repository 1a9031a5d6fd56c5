#include "xmi/tables/ids.h"

#include <algorithm>
#include <cstring>

namespace xmi {
namespace {

constexpr std::size_t kSmallest = 64;
constexpr std::size_t kBytesPerId = 100;  // of a usual file; others make the table grow

std::size_t SizeFor(std::size_t ids) { return ids + ids / 3 + 1; }

}  // namespace

void Ids::AddFile(std::size_t bytes) {
  tables_.emplace_back();
  Grow(tables_.back(), SizeFor(std::max(kSmallest, bytes / kBytesPerId)));
}

// The slot where the id stands or, if it is not in the table, belongs.
std::size_t Ids::SlotOf(const Table& table, std::string_view id, std::uint32_t hash) {
  std::size_t slot = FirstSlot(table, hash);
  for (; table.entries[slot].text != nullptr; slot = NextSlot(table, slot)) {
    const Entry& entry = table.entries[slot];
    if (entry.hash == hash && std::strncmp(entry.text, id.data(), id.size()) == 0 &&
        entry.text[id.size()] == '\0') {
      break;
    }
  }
  return slot;
}

bool Ids::Add(FileIndex file, const char* id, std::uint32_t hash, IdTarget target) {
  Table& table = tables_[file];
  if (SizeFor(table.count + 1) > table.entries.size()) Grow(table, 2 * table.entries.size());
  Entry& entry = table.entries[SlotOf(table, id, hash)];
  if (entry.text != nullptr) return false;
  entry = {id, hash, target};
  ++table.count;
  return true;
}

const IdTarget* Ids::Find(FileIndex file, std::string_view id, std::uint32_t hash) const {
  if (file >= tables_.size()) return nullptr;  // it was opened for this question and isn't read
  const Table& table = tables_[file];
  const Entry& entry = table.entries[SlotOf(table, id, hash)];
  return entry.text == nullptr ? nullptr : &entry.target;
}

void Ids::Renumber(const std::vector<ItemIndex>& numbers) {
  for (Table& table : tables_) {
    for (Entry& entry : table.entries) {
      if (entry.target.item != kNoItem) entry.target.item = numbers[entry.target.item];
    }
  }
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
  for (const Entry& entry : old) {
    if (entry.text == nullptr) continue;
    std::size_t slot = FirstSlot(table, entry.hash);
    while (table.entries[slot].text != nullptr) slot = NextSlot(table, slot);
    table.entries[slot] = entry;
  }
}

}  // namespace xmi
