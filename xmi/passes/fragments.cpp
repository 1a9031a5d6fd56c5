// Joins what a model keeps in several files: elements, values and template bindings.
#include <algorithm>
#include <unordered_map>

#include "xmi/passes/passes.h"
#include "xmi/passes/resolver.h"

namespace xmi {
namespace {

/// Gives the roots of fragments the owners of their placeholders, then puts the items into the
/// order in which their elements stand in the model.
///
/// Files are read one after the other, but what one file holds may stand in the middle of another.
/// Afterwards a loop over the items meets it there, so the lists that such loops make are in order.
class Fragments {
 public:
  explicit Fragments(Reading& reading) : reading_(reading) {}

  void Place() {
    for (const Reference& reference : reading_.references) {
      if (!IsOwnedFeature(reference.feature)) continue;
      const IdTarget* target = FindOrWarn(reading_, reference.from, TextOf(reference.feature),
                                          {reference.text, reference.isHref});
      if (target != nullptr) PlaceOne(reference.from, *target);
    }
    if (!roots_.empty()) RestoreDocumentOrder();
  }

 private:
  struct Range {
    ItemIndex next;
    ItemIndex end;
  };

  void PlaceOne(ItemIndex placeholder, const IdTarget& target) {
    const ItemIndex owner = reading_.items[placeholder].owner;
    const ItemIndex top = TopOf(placeholder);
    // Only what has no place yet is placed, and nothing is placed within itself.
    if (target.inner || reading_.items[target.item].owner != kNoItem || top == target.item) {
      return WarnMisplaced(reading_, placeholder, owner, target.item);
    }
    Item& item = reading_.items[target.item];
    item.owner = owner;
    item.flags |= reading_.items[placeholder].flags & Item::kMember;
    roots_[placeholder] = target.item;
    tops_[target.item] = top;
  }

  // The outermost owner of an item, as far as fragments are placed. Ways once gone are shortened:
  // files may hold each other in long chains.
  ItemIndex TopOf(ItemIndex item) {
    ItemIndex top = std::prev(reading_.RootBehind(item))->item;
    for (auto at = tops_.find(top); at != tops_.end(); at = tops_.find(top)) {
      const auto above = tops_.find(at->second);
      if (above != tops_.end()) at->second = above->second;
      top = at->second;
    }
    return top;
  }

  void RestoreDocumentOrder() {
    const std::vector<ItemIndex> order = DocumentOrder();
    std::vector<ItemIndex> numbers(order.size());
    for (ItemIndex i = 0; i < order.size(); ++i) numbers[order[i]] = i;
    const auto renumberPart = [&numbers](Part& part) {
      part.item = numbers[part.item];
      part.source = numbers[part.source];
    };
    reading_.items.Renumber(order, numbers);
    reading_.ids.Renumber(numbers);
    for (Reference& reference : reading_.references) reference.from = numbers[reference.from];
    for (ValueSpec& value : reading_.values) renumberPart(value);
    for (Part& binding : reading_.bindings) renumberPart(binding);
    for (Root& root : reading_.roots) root.item = numbers[root.item];
    std::sort(reading_.roots.begin(), reading_.roots.end(),
              [](const Root& a, const Root& b) { return a.item < b.item; });
  }

  // What a root owns stands behind it, up to the next root.
  std::vector<ItemIndex> DocumentOrder() {
    std::vector<ItemIndex> order;
    order.reserve(reading_.items.Size());
    for (const Root& root : reading_.roots) {
      if (reading_.items[root.item].owner == kNoItem) Open(root.item);
      while (!open_.empty()) Step(order);
    }
    return order;
  }

  void Open(ItemIndex root) {
    const auto next = reading_.RootBehind(root);
    open_.push_back({root, next == reading_.roots.end() ? reading_.items.Size() : next->item});
  }

  void Step(std::vector<ItemIndex>& order) {
    Range& range = open_.back();
    if (range.next == range.end) return open_.pop_back();
    const ItemIndex item = range.next++;
    order.push_back(item);
    const auto placed = roots_.find(item);
    if (placed != roots_.end()) Open(placed->second);
  }

  Reading& reading_;
  std::unordered_map<ItemIndex, ItemIndex> roots_;  // by placeholder
  std::unordered_map<ItemIndex, ItemIndex> tops_;   // of roots that are placed
  std::vector<Range> open_;                         // from the outside in
};

// What was read from the other file takes the place of the part that only says where it is. False
// when there is nothing to fetch; a part that can't be found has no source any more.
bool Fetch(Reading& reading, Part& part, std::string_view feature, Word type) {
  if (part.href.empty()) return false;
  part.source = FindRoot(reading, part.item, feature, part.href, type);
  part.node = reading.RootNode(part.source);
  return part.source != kNoItem;
}

bool IsLost(const Part& part) { return part.source == kNoItem; }

}  // namespace

void PlaceFragments(Reading& reading) { Fragments(reading).Place(); }

void FetchParts(Reading& reading) {
  for (ValueSpec& value : reading.values) {
    const bool isFetched = Fetch(reading, value, TextOf(value.feature), Word::kNone);
    if (isFetched) value.type = reading.items[value.source].type;
  }
  std::erase_if(reading.values, IsLost);
  for (Part& binding : reading.bindings) {
    Fetch(reading, binding, TextOf(Word::kTemplateBinding), Word::kTemplateBindingType);
  }
  std::erase_if(reading.bindings, IsLost);
}

}  // namespace xmi
