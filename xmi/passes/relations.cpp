// Turns what was read into what elements answer about each other: types, members, parameters,
// parents, comments.
#include <unordered_set>

#include "xmi/passes/passes.h"
#include "xmi/tables/libraries.h"

namespace xmi {
namespace {

// An instantiation of a template is its own type expression; only an "Ident" designates a type.
void SetType(Reading& reading, ItemIndex typed, ItemIndex type) {
  model::Element& element = *reading.items[typed].element;
  model::Element& designated = *reading.items[type].element;
  if (designated.Text(properties::name) == "void") reading.items[typed].flags |= Item::kTypedVoid;
  if (designated.Metaclass() == metaclasses::templateInstantiation) {
    element.SetEntity(properties::targetType, &designated);
    return;
  }
  element.SetEntity(properties::targetType, &reading.IdentOf(type));
  element.SetEntity(properties::type, &designated);
}

// Where UML has one target, the first counts.
void SetLink(Reading& reading, const Link& link, Lists& exceptions) {
  const Item& from = reading.items[link.from];
  model::Element* const target = reading.items[link.to].element;
  switch (link.feature) {
    case Word::kType:
      if (IsTyped(from.type) && from.element->Entity(properties::targetType) == nullptr) {
        SetType(reading, link.from, link.to);
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
bool IsParameter(const Item& item) {
  if (item.type != Word::kParameter) return false;
  if (item.element->Text(properties::direction) != values::return_) return true;
  return item.Has(Item::kTyped) && !item.Has(Item::kTypedVoid);
}

// A reception stands for its signal; what a class of constants owns is its package's.
void AddMember(const Items& items, ItemIndex index, Lists& members) {
  const Item& item = items[index];
  if (!item.Has(Item::kMember) || item.Has(Item::kHolder)) return;
  model::Element* member = item.element;
  if (item.type == Word::kReception) member = item.element->Entity(properties::signal);
  if (member != nullptr) members.Add(items.ScopeOf(index), member);
}

// A comment that annotates nothing is its owner's.
void AddComment(const Items& items, const Item& item, std::span<const Link> links,
                Lists& comments) {
  bool annotates = false;
  std::unordered_set<ItemIndex> annotated;
  for (const Link& link : links) {
    if (link.feature != Word::kAnnotatedElement || link.to == kNoItem) continue;
    annotates = true;
    const bool isKnown = items[link.to].element != nullptr;
    if (isKnown && annotated.insert(link.to).second) comments.Add(link.to, item.element);
  }
  if (!annotates && item.owner != kNoItem) comments.Add(item.owner, item.element);
}

}  // namespace

void NamePrimitives(Reading& reading) {
  for (ItemIndex index = 0; index < reading.items.Size(); ++index) {
    const Item& item = reading.items[index];
    if (item.type != Word::kPrimitiveType || item.Has(Item::kMarked)) continue;
    const std::string_view name = item.element->Text(properties::name);
    const std::string_view known = PrimitiveName(name);
    if (known != name) item.element->SetTextView(properties::name, known);
  }
}

void SetLinks(Reading& reading) {
  Lists exceptions;
  for (const Link& link : reading.links) {
    const bool isKnown = link.to != kNoItem && reading.items[link.to].element != nullptr;
    if (isKnown) SetLink(reading, link, exceptions);
  }
  exceptions.Store(reading.items, properties::raisedException);
}

void SetMembers(Reading& reading) {
  const Items& items = reading.items;
  Lists members;
  Lists parameters;
  Lists literals;
  for (ItemIndex index = 0; index < items.Size(); ++index) {
    const Item& item = items[index];
    if (item.element == nullptr || item.owner == kNoItem) continue;
    const Item& owner = items[item.owner];
    AddMember(items, index, members);
    // The agent asks a signal for its attributes as it asks an operation for its parameters.
    const bool isSignals = owner.type == Word::kSignal && item.type == Word::kProperty;
    if (isSignals || IsParameter(item)) parameters.Add(item.owner, item.element);
    if (item.type == Word::kEnumerationLiteral) {
      literals.Add(item.owner, item.element);
      item.element->SetEntity(properties::owner, owner.element);
    }
  }
  members.Store(items, properties::ownedMember);
  parameters.Store(items, properties::parameter);
  literals.Store(items, properties::literal);
  for (const Root& root : reading.roots) {
    const Item& item = items[root.item];
    const bool isOwn = item.owner == kNoItem && !reading.files[item.file].isLibrary;
    if (isOwn) reading.model.AddRoot(*item.element);
  }
}

void SetComments(Reading& reading) {
  Lists comments;
  reading.ForEachItem([&](ItemIndex index, std::span<const Link> links) {
    const Item& item = reading.items[index];
    if (item.type == Word::kComment) AddComment(reading.items, item, links, comments);
  });
  comments.Store(reading.items, properties::comment);
}

}  // namespace xmi
