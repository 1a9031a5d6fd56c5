#include "xmi/passes/document_order.h"

#include <algorithm>
#include <unordered_map>

namespace xmi {
namespace {

/// Finds the order. What a root owns stands behind it, up to the next root.
class Sorter {
 public:
  Sorter(const Reading& reading, const std::vector<Placement>& placements) : reading_(reading) {
    for (const auto& [place, root] : placements) roots_[place] = root;
  }

  std::vector<ItemIndex> Sorted() {
    std::vector<ItemIndex> order;
    order.reserve(reading_.items.Size());
    for (const Root& root : reading_.roots) {
      if (reading_.items[root.item].owner == kNoItem) Open(root.item);
      while (!open_.empty()) Step(order);
    }
    return order;
  }

 private:
  struct Range {
    ItemIndex next;
    ItemIndex end;
  };

  void Open(ItemIndex root) {
    const auto next = reading_.RootBehind(root);
    const bool isLast = next == reading_.roots.end();
    open_.push_back({root, isLast ? static_cast<ItemIndex>(reading_.items.Size()) : next->item});
  }

  void Step(std::vector<ItemIndex>& order) {
    Range& range = open_.back();
    if (range.next == range.end) return open_.pop_back();
    const ItemIndex item = range.next++;
    order.push_back(item);
    const auto placed = roots_.find(item);
    if (placed != roots_.end()) Open(placed->second);
  }

  const Reading& reading_;
  std::unordered_map<ItemIndex, ItemIndex> roots_;  // by place
  std::vector<Range> open_;                         // from the outside in
};

}  // namespace

void RestoreDocumentOrder(Reading& reading, const std::vector<Placement>& placements) {
  if (placements.empty()) return;
  const std::vector<ItemIndex> order = Sorter(reading, placements).Sorted();
  std::vector<ItemIndex> numbers(reading.items.Size());
  for (std::size_t i = 0; i < order.size(); ++i) numbers[order[i]] = static_cast<ItemIndex>(i);
  reading.items.Renumber(order, numbers);
  reading.ids.Renumber(numbers);
  for (Reference& reference : reading.references) reference.from = numbers[reference.from];
  const auto renumberPart = [&numbers](Part& part) {
    part.item = numbers[part.item];
    part.source = numbers[part.source];
  };
  for (ValueNode& value : reading.values) renumberPart(value);
  for (Part& binding : reading.bindings) renumberPart(binding);
  for (Root& root : reading.roots) root.item = numbers[root.item];
  std::sort(reading.roots.begin(), reading.roots.end(),
            [](const Root& a, const Root& b) { return a.item < b.item; });
}

}  // namespace xmi
