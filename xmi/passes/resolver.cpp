#include "xmi/passes/resolver.h"

#include <algorithm>
#include <utility>

#include "xmi/passes/passes.h"
#include "xmi/text/scanning.h"

namespace xmi {
namespace {

// Makes the types that a tool keeps in a block of its own known, without using the call stack for
// the depth of the block.
struct ExtensionTypes : pugi::xml_tree_walker {
  ExtensionTypes(Reading& filled, FileIndex from) : reading(filled), file(from) {}

  bool for_each(pugi::xml_node& node) override {
    const std::string_view id = PrefixedAttribute(node, "id");
    const std::string_view type = PrefixedAttribute(node, "type");
    if (id.empty() || FindType(SplitName(type).local) != Word::kPrimitiveType) return true;
    model::Element& element = reading.model.Create(metaclasses::dataType);
    element.SetTextView(properties::name, PlainAttribute(node, "name"));
    const std::uint32_t offset = reading.files[file].document->OffsetOf(node);
    const ItemIndex item =
        reading.items.Add({&element, kNoItem, offset, file, Word::kPrimitiveType, 0});
    reading.ids.Add(file, id.data(), Ids::HashOf(id), {item, false});
    return true;
  }

  Reading& reading;
  FileIndex file;
};

// One tool puts the primitive types that a model uses into an extension of the file. What else is
// in there may repeat ids of the model, so it is only looked at when a type is missing, and once.
const IdTarget* FindInExtensions(Reading& reading, FileIndex file, std::string_view id) {
  ExtensionTypes types(reading, file);
  for (pugi::xml_node extension : std::exchange(reading.files[file].extensions, {})) {
    extension.traverse(types);
  }
  return reading.ids.Find(file, id);
}

void ResolveAll(Reading& reading, const Reference& reference) {
  const std::string_view feature = TextOf(reference.feature);
  const std::string_view text = reference.text;
  // The type may stand in a library that isn't read; its id says enough.
  const bool isVoid = reference.isHref && text.ends_with("#void");
  if (isVoid) reading.items[reference.from].flags |= Item::kTypedVoid;
  const auto add = [&](std::string_view one) {
    const ItemIndex found = FindItem(reading, reference.from, feature, {one, reference.isHref});
    reading.links.push_back({reference.from, found, reference.feature});
  };
  if (reference.isHref) return add(text);
  ForEachWord(text, add);
}

void Prefetch(const Reading& reading, const Reference& reference) {
  __builtin_prefetch(reference.text);
  if (!reference.isHref) {
    reading.ids.Prefetch(reading.items[reference.from].file, reference.hash);
  }
}

// Most references are one id of their own file; all others go the long way.
void Resolve(Reading& reading, const Reference& reference) {
  const FileIndex file = reading.items[reference.from].file;
  const std::string_view text = reference.text;
  const bool isOne = !reference.isHref && text.find(' ') == text.npos;
  const IdTarget* target = isOne ? reading.ids.Find(file, text, reference.hash) : nullptr;
  if (target == nullptr) return ResolveAll(reading, reference);
  const ItemIndex found = target->inner ? kNoItem : target->item;
  reading.links.push_back({reference.from, found, reference.feature});
}

}  // namespace

const IdTarget* FindTarget(Reading& reading, FileIndex file, const IdOrHref& reference) {
  if (!reference.isHref) return reading.ids.Find(file, reference.text);
  const Target target = reading.files.Follow(file, reference.text, Document::kNowhere);
  if (target.file == Target::kNoFile) return nullptr;
  const IdTarget* found = reading.ids.Find(target.file, target.id);
  // An id may hold a "%" of its own, so it counts as it stands first.
  if (found != nullptr || target.id.find('%') == target.id.npos) return found;
  return reading.ids.Find(target.file, PercentDecoded(target.id));
}

const IdTarget* FindOrWarn(Reading& reading, ItemIndex from, std::string_view feature,
                           const IdOrHref& reference) {
  const FileIndex file = reading.items[from].file;
  if (const IdTarget* found = FindTarget(reading, file, reference)) return found;
  std::string_view id = reference.text;
  std::string where = "the file";
  if (reference.isHref) {
    const Target target = reading.files.Follow(file, reference.text, Document::kNowhere);
    if (target.file == Target::kNoFile) return nullptr;  // the file has had its warning
    where = reading.files[target.file].document->Path();
    id = target.id;
  } else if (feature == "type") {
    if (const IdTarget* found = FindInExtensions(reading, file, id)) return found;
  }
  reading.Warn(from, "dangling-reference",
               "the " + std::string(feature) + " of " + reading.Describe(from) + " is \"" +
                   std::string(id) + "\", which is not in " + where);
  return nullptr;
}

ItemIndex FindItem(Reading& reading, ItemIndex from, std::string_view feature, IdOrHref reference) {
  if (!reference.isHref && reference.text.find(' ') != reference.text.npos) {
    reference.text = TakeWord(reference.text);
  }
  const IdTarget* found = FindOrWarn(reading, from, feature, reference);
  return found == nullptr || found->inner ? kNoItem : found->item;
}

ItemIndex FindRoot(Reading& reading, ItemIndex from, std::string_view feature,
                   std::string_view href, Word type) {
  const IdTarget* target = FindOrWarn(reading, from, feature, {href, true});
  if (target == nullptr) return kNoItem;
  if (!target->inner && reading.RootNode(target->item)) {
    const Word found = reading.items[target->item].type;
    if (type == Word::kNone ? IsValue(found) : found == type) return target->item;
  }
  WarnMisplaced(reading, from, from, target->item);
  return kNoItem;
}

void WarnMisplaced(Reading& reading, ItemIndex at, ItemIndex owner, ItemIndex found) {
  const std::string what = found == kNoItem ? "a stereotype's mark" : reading.Describe(found);
  reading.Warn(at, "misplaced-element",
               "an element of another file stands in " + reading.Describe(owner) +
                   " but belongs elsewhere: " + what);
}

void ResolveReferences(Reading& reading) {
  constexpr std::size_t kAhead = 16;
  const std::vector<Reference>& references = reading.references;
  std::vector<Link>& links = reading.links;
  // Some references have several ids. Room that isn't used costs nothing, but moving links does.
  links.reserve(2 * references.size());
  for (std::size_t i = 0; i < references.size(); ++i) {
    if (i + kAhead < references.size()) Prefetch(reading, references[i + kAhead]);
    // What placeholders refer to has taken their places.
    if (!IsOwnedFeature(references[i].feature)) Resolve(reading, references[i]);
  }
  const auto isBefore = [](const Link& a, const Link& b) { return a.from < b.from; };
  if (!std::is_sorted(links.begin(), links.end(), isBefore)) {
    std::stable_sort(links.begin(), links.end(), isBefore);
  }
}

}  // namespace xmi
