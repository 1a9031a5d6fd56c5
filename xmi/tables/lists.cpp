#include "xmi/tables/lists.h"

#include <span>

namespace xmi {

void Lists::Store(Reading& reading, model::Symbol property) {
  if (entries_.empty()) return;
  std::vector<std::uint32_t> ends(reading.items.Size() + 1, 0);
  for (const Entry& entry : entries_) ++ends[entry.owner + 1];
  for (std::size_t i = 1; i < ends.size(); ++i) ends[i] += ends[i - 1];
  // Each owner's place moves from its begin to its end while the entries are put there.
  std::vector<model::Element*> sorted(entries_.size());
  for (const Entry& entry : entries_) sorted[ends[entry.owner]++] = entry.element;
  std::uint32_t begin = 0;
  for (std::size_t owner = 0; begin < sorted.size(); ++owner) {
    const std::uint32_t end = ends[owner];
    if (end == begin) continue;
    const std::span<model::Element* const> list(sorted.data() + begin, end - begin);
    reading.items[static_cast<ItemIndex>(owner)].element->SetEntities(property, list);
    begin = end;
  }
}

}  // namespace xmi
