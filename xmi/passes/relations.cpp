#include "xmi/passes/relations.h"

#include <unordered_set>

#include "xmi/tables/libraries.h"

namespace xmi {

void Relations::NamePrimitives() {
  for (std::size_t i = 0; i < reading_.items.Size(); ++i) {
    const Item& item = reading_.items[static_cast<ItemIndex>(i)];
    if (item.type != Word::kPrimitiveType || item.Has(Item::kMarked)) continue;
    const std::string_view name = item.element->Text(properties::name);
    const std::string_view known = PrimitiveName(name);
    if (known != name) item.element->SetTextView(properties::name, known);
  }
}

void Relations::SetLinks() {
  Lists exceptions;
  for (const Link& link : reading_.links) {
    if (link.to != kNoItem && reading_.items[link.to].element != nullptr) {
      SetLink(link, exceptions);
    }
  }
  exceptions.Store(reading_, properties::raisedException);
}

void Relations::SetLink(const Link& link, Lists& exceptions) {
  const Item& from = reading_.items[link.from];
  model::Element* const target = reading_.items[link.to].element;
  switch (link.feature) {
    case Word::kType:
      if (IsTyped(from.type) && from.element->Entity(properties::targetType) == nullptr) {
        types_.Set(link.from, link.to);
      }
      break;
    case Word::kGeneral:
      if (from.element->Entity(properties::parent) == nullptr) {
        from.element->SetEntity(properties::parent, target);
      }
      break;
    case Word::kRaisedException:
      exceptions.Add(link.from, target);
      break;
    case Word::kSignalReference:
      from.element->SetEntity(properties::signal, target);
      break;
    default:
      break;
  }
}

// Tools write a return parameter without a type, or of a type "void", for an operation without a
// result.
bool Relations::IsParameter(const Item& item) const {
  if (item.type != Word::kParameter) return false;
  if (item.element->Text(properties::direction) != values::return_) return true;
  return item.Has(Item::kTyped) && !item.Has(Item::kTypedVoid);
}

void Relations::AddMember(ItemIndex index, Lists& members) {
  const Item& item = reading_.items[index];
  if (!item.Has(Item::kMember) || item.Has(Item::kHolder)) return;
  model::Element* member = item.element;
  if (item.type == Word::kReception) member = item.element->Entity(properties::signal);
  if (member != nullptr) members.Add(reading_.items.ScopeOf(index), member);
}

void Relations::SetMembers() {
  Lists members;
  Lists parameters;
  Lists literals;
  for (std::size_t i = 0; i < reading_.items.Size(); ++i) {
    const auto index = static_cast<ItemIndex>(i);
    const Item& item = reading_.items[index];
    if (item.element == nullptr || item.owner == kNoItem) continue;
    const Item& owner = reading_.items[item.owner];
    AddMember(index, members);
    const bool isSignals = owner.type == Word::kSignal && item.type == Word::kProperty;
    if (isSignals || IsParameter(item)) parameters.Add(item.owner, item.element);
    if (item.type == Word::kEnumerationLiteral) {
      literals.Add(item.owner, item.element);
      item.element->SetEntity(properties::owner, owner.element);
    }
  }
  members.Store(reading_, properties::ownedMember);
  parameters.Store(reading_, properties::parameter);
  literals.Store(reading_, properties::literal);
  for (const Root& root : reading_.roots) {
    const Item& item = reading_.items[root.item];
    const bool isOwn = item.owner == kNoItem && !reading_.files[item.file].isLibrary;
    if (isOwn) reading_.model.AddRoot(*item.element);
  }
}

void Relations::SetComments() {
  Lists comments;
  std::size_t next = 0;
  for (std::size_t i = 0; i < reading_.items.Size(); ++i) {
    const auto index = static_cast<ItemIndex>(i);
    const std::span<const Link> links = reading_.LinksOf(index, next);
    if (reading_.items[index].type == Word::kComment) AddComment(index, links, comments);
  }
  comments.Store(reading_, properties::comment);
}

// A comment that annotates nothing is its owner's.
void Relations::AddComment(ItemIndex index, std::span<const Link> links, Lists& comments) {
  const Item& item = reading_.items[index];
  bool annotates = false;
  std::unordered_set<ItemIndex> annotated;
  for (const Link& link : links) {
    if (link.feature != Word::kAnnotatedElement || link.to == kNoItem) continue;
    annotates = true;
    const bool isKnown = reading_.items[link.to].element != nullptr;
    if (isKnown && annotated.insert(link.to).second) comments.Add(link.to, item.element);
  }
  if (!annotates && item.owner != kNoItem) comments.Add(item.owner, item.element);
}

}  // namespace xmi
