#include "model/element.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <new>
#include <type_traits>

#include "model/api_error.h"
#include "model/storage.h"
#include "model/vocabulary.h"

namespace model {

/// One property: its name and what it holds, in 16 bytes.
struct Element::Slot {
  enum Kind : std::uint32_t { unset, text, entity, list };

  explicit Slot(Symbol name) : property(name.Id()), kind(unset) {}

  std::string_view Text() const { return {content.text, size}; }
  std::span<Element*> List() const { return {content.list, size}; }

  std::uint32_t property : 30;
  std::uint32_t kind : 2;
  std::uint32_t size = 0;  // of a text, in bytes, or of a list
  union {
    const char* text;
    Element* entity;
    Element** list;
  } content{};

  /// How many slots an element gets room for that is to have that many and has no room.
  static std::size_t SlotCapacity(std::size_t count) {
    return count <= 8 ? (count + 1) / 2 * 2 : std::bit_ceil(count);
  }

  /// How many elements a list with that many has room for.
  static std::size_t ListCapacity(std::size_t count) {
    return count == 0 ? 0 : std::bit_ceil(count);
  }
};

static_assert(sizeof(Element) == 32 && std::is_trivially_destructible_v<Element>);

Element::Slot* Element::Find(Symbol property) const {
  static_assert(sizeof(Slot) == 16 && alignof(Slot) == 8);
  for (Slot* slot = slots_; slot != slots_ + slotCount_; ++slot) {
    if (slot->property == property.Id()) return slot;
  }
  return nullptr;
}

Element::Slot& Element::Make(Symbol property) {
  Slot* slot = Find(property);
  if (slot == nullptr) {
    if (slotCount_ == slotCapacity_) GrowSlots(Slot::SlotCapacity(slotCount_ + 1));
    slot = new (slots_ + slotCount_) Slot(property);
    ++slotCount_;
  }
  return *slot;
}

void Element::GrowSlots(std::size_t capacity) {
  constexpr std::size_t most = 1 << 14;
  if (capacity > most) Fail("an element has too many properties");
  auto* slots = static_cast<Slot*>(model_->impl_->arrays.Allocate(capacity * sizeof(Slot)));
  std::uninitialized_copy_n(slots_, slotCount_, slots);
  model_->impl_->arrays.Release(slots_, slotCapacity_ * sizeof(Slot));
  slots_ = slots;
  slotCapacity_ = capacity;
}

void Element::Unset(Slot& slot) {
  if (slot.kind == Slot::list) ReleaseList(slot);
  slot.kind = Slot::unset;
  slot.size = 0;
}

void Element::ReleaseList(Slot& slot) const {
  const std::size_t bytes = Slot::ListCapacity(slot.size) * sizeof(Element*);
  model_->impl_->arrays.Release(slot.content.list, bytes);
  slot.content.list = nullptr;
}

/// Leaves deleted elements out of a list, once and for all.
void Element::Purge(Slot& slot) const {
  const auto list = slot.List();
  const auto kept =
      std::remove_if(list.begin(), list.end(), [](Element* e) { return e->deleted_; });
  if (kept == list.begin() && !list.empty()) ReleaseList(slot);
  slot.size = static_cast<std::uint32_t>(kept - list.begin());
}

void Element::SetText(Symbol property, std::string_view text) {
  SetTextView(property, model_->Store(text));
}

void Element::SetTextView(Symbol property, std::string_view text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) Fail("a text is too long");
  if (text.empty()) return SetEntity(property, nullptr);
  Slot& slot = Make(property);
  Unset(slot);
  slot.kind = Slot::text;
  slot.size = static_cast<std::uint32_t>(text.size());
  slot.content.text = text.data();
  model_->impl_->Changed(property);
}

void Element::SetEntity(Symbol property, Element* target) {
  if (target == nullptr && Find(property) == nullptr) return;
  Slot& slot = Make(property);
  Unset(slot);
  slot.kind = target == nullptr ? Slot::unset : Slot::entity;
  slot.content.entity = target;
  model_->impl_->Changed(property);
}

void Element::SetEntities(Symbol property, std::span<Element* const> targets) {
  if (targets.empty()) return SetEntity(property, nullptr);
  const std::size_t bytes = Slot::ListCapacity(targets.size()) * sizeof(Element*);
  auto** list = static_cast<Element**>(model_->impl_->arrays.Allocate(bytes));
  std::copy(targets.begin(), targets.end(), list);
  Slot& slot = Make(property);
  Unset(slot);  // not before: the targets may be a part of the old list
  slot.kind = Slot::list;
  slot.size = static_cast<std::uint32_t>(targets.size());
  slot.content.list = list;
  model_->impl_->Changed(property);
}

void Element::AddEntity(Symbol property, Element& target) {
  Slot& slot = Make(property);
  if (slot.kind != Slot::list) {
    Unset(slot);
    slot.kind = Slot::list;
    slot.content.list = nullptr;
  }
  if (slot.size == Slot::ListCapacity(slot.size)) GrowList(slot);
  slot.content.list[slot.size++] = &target;
  model_->impl_->Changed(property);
}

void Element::GrowList(Slot& slot) const {
  const std::size_t bytes = Slot::ListCapacity(slot.size + 1) * sizeof(Element*);
  auto** list = static_cast<Element**>(model_->impl_->arrays.Allocate(bytes));
  std::copy_n(slot.content.list, slot.size, list);
  ReleaseList(slot);
  slot.content.list = list;
}

std::string_view Element::Text(Symbol property) const {
  const Slot* slot = Find(property);
  return slot != nullptr && slot->kind == Slot::text ? slot->Text() : std::string_view();
}

Element* Element::Entity(Symbol property) const {
  const Slot* slot = Find(property);
  if (slot == nullptr || slot->kind != Slot::entity) return nullptr;
  return slot->content.entity->deleted_ ? nullptr : slot->content.entity;
}

std::span<Element* const> Element::Entities(Symbol property) const {
  Slot* slot = Find(property);
  if (slot == nullptr || slot->kind != Slot::list) return {};
  if (model_->impl_->hasDeleted) Purge(*slot);
  return slot->List();
}

bool Element::HasKeyword(Symbol keyword) const {
  const auto keywords = Entities(properties::keyword);
  if (keywords.empty()) return false;
  return std::find(keywords.begin(), keywords.end(), model_->impl_->KeywordOf(keyword)) !=
         keywords.end();
}

}  // namespace model
