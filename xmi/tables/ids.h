// The xmi:ids of all files, each with the element that has it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "model/short_text.h"
#include "xmi/tables/items.h"

namespace xmi {

/// What an id leads to.
struct IdTarget {
  ItemIndex item : 31;
  /// The id is that of something inside the item, a template's signature for one.
  ItemIndex inner : 1;
};

class Ids {
 public:
  /// Makes room for the ids of the next file, as many as a text of that size may have.
  void AddFile(std::size_t bytes);

  /// Enters an id; false when the file has it already, which then counts. The text is borrowed and
  /// ends in a NUL. `hash` is its `HashOf`.
  bool Add(FileIndex file, const char* id, std::uint32_t hash, IdTarget target);
  /// What an id leads to; null when the file has no such id. Valid until the next `Add`.
  const IdTarget* Find(FileIndex file, std::string_view id) const {
    return Find(file, id, HashOf(id));
  }
  /// The same when the id's `HashOf` is known.
  const IdTarget* Find(FileIndex file, std::string_view id, std::uint32_t hash) const;

  static std::uint32_t HashOf(std::string_view id) { return model::HashOfText(id); }
  /// Fetches what `Add` and `Find` will read of the table, which doesn't fit into caches.
  void Prefetch(FileIndex file, std::uint32_t hash) const {
    const Table& table = tables_[file];
    __builtin_prefetch(&table.entries[FirstSlot(table, hash)]);
  }
  /// Gives every item its new index, by its old one.
  void Renumber(const std::vector<ItemIndex>& numbers);
  /// The id of an item; empty when it has none. Goes through all ids when first called.
  std::string_view IdOf(ItemIndex item) const;

 private:
  struct Entry {
    const char* text = nullptr;  // null in a free slot
    std::uint32_t hash = 0;
    IdTarget target{};
  };
  struct Table {
    std::vector<Entry> entries;  // open addressing; at least a quarter is free
    std::size_t count = 0;
  };

  /// Where an entry of that hash stands unless others are in its way.
  static std::size_t FirstSlot(const Table& table, std::uint32_t hash) {
    return static_cast<std::size_t>(hash * std::uint64_t{table.entries.size()} >> 32);
  }
  static std::size_t NextSlot(const Table& table, std::size_t slot) {
    return slot + 1 == table.entries.size() ? 0 : slot + 1;
  }
  static std::size_t SlotOf(const Table& table, std::string_view id, std::uint32_t hash);
  static void Grow(Table& table, std::size_t size);

  std::vector<Table> tables_;                // by file
  mutable std::vector<const char*> byItem_;  // null for one without an id; filled when first asked
};

}  // namespace xmi
