#include "xmi/passes/resolver.h"

#include <algorithm>
#include <functional>

#include "xmi/passes/element_builder.h"
#include "xmi/text/start_tag.h"

namespace xmi {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// Reaches every element below a node without using the call stack for the depth.
void ForEachBelow(pugi::xml_node top, const std::function<void(pugi::xml_node)>& visit) {
  struct Visitor : pugi::xml_tree_walker {
    explicit Visitor(const std::function<void(pugi::xml_node)>& called) : visit(called) {}
    bool for_each(pugi::xml_node& node) override {
      if (node.type() == pugi::node_element) visit(node);
      return true;
    }
    const std::function<void(pugi::xml_node)>& visit;
  } visitor(visit);
  top.traverse(visitor);
}

}  // namespace

std::string_view TakeWord(std::string_view& text) {
  const char* begin = text.data();
  const char* const textEnd = begin + text.size();
  while (begin != textEnd && IsBlank(*begin)) ++begin;
  const char* end = begin;
  while (end != textEnd && !IsBlank(*end)) ++end;
  text = {end, static_cast<std::size_t>(textEnd - end)};
  return {begin, static_cast<std::size_t>(end - begin)};
}

const IdTarget* Resolver::FindEntry(FileIndex file, std::string_view text, bool isHref) {
  if (!isHref) return reading_.ids.Find(file, text);
  const Target target = reading_.files.Follow(file, text, Document::kNowhere);
  if (target.file == Target::kNoFile) return nullptr;
  const IdTarget* entry = reading_.ids.Find(target.file, target.id);
  if (entry != nullptr || target.id.find('%') == std::string_view::npos) return entry;
  return reading_.ids.Find(target.file, PercentDecoded(target.id));
}

const IdTarget* Resolver::FindOrWarn(ItemIndex from, std::string_view feature,
                                     std::string_view text, bool isHref) {
  const FileIndex file = reading_.items[from].file;
  if (const IdTarget* entry = FindEntry(file, text, isHref)) return entry;
  std::string place = "the file";
  if (isHref) {
    const Target target = reading_.files.Follow(file, text, Document::kNowhere);
    if (target.file == Target::kNoFile) return nullptr;
    place = reading_.files[target.file].document->Path();
    text = target.id;
  } else if (feature == "type") {
    if (const IdTarget* entry = FindInExtensions(file, text)) return entry;
  }
  reading_.Warn(from, "dangling-reference",
                "the " + std::string(feature) + " of " + reading_.Describe(from) + " is \"" +
                    std::string(text) + "\", which is not in " + place);
  return nullptr;
}

// Some tools put the types that a model uses into a block of their own.
const IdTarget* Resolver::FindInExtensions(FileIndex file, std::string_view id) {
  extensionsRead_.resize(reading_.files.Size());
  if (extensionsRead_[file]) return nullptr;
  extensionsRead_[file] = true;
  for (const pugi::xml_node extension : reading_.files[file].extensions) {
    ForEachBelow(extension, [&](pugi::xml_node node) {
      const std::string_view nodeId = LocalAttribute(node, "id", true);
      const std::string_view type = LocalAttribute(node, "type", true);
      if (nodeId.empty() || TypeOf(SplitName(type).local) != Word::kPrimitiveType) return;
      model::Element& element = reading_.model.Create(metaclasses::dataType);
      element.SetTextView(properties::name, LocalAttribute(node, "name", false));
      const ItemIndex item =
          reading_.items.Add({&element, kNoItem, reading_.files[file].document->OffsetOf(node),
                              file, Word::kPrimitiveType, 0});
      reading_.ids.Add(file, nodeId.data(), Ids::HashOf(nodeId), {item, false});
    });
  }
  return reading_.ids.Find(file, id);
}

ItemIndex Resolver::Find(ItemIndex from, std::string_view feature, std::string_view text,
                         bool isHref) {
  if (!isHref && text.find(' ') != std::string_view::npos) text = TakeWord(text);
  const IdTarget* entry = FindOrWarn(from, feature, text, isHref);
  return entry == nullptr || entry->inner ? kNoItem : entry->item;
}

ItemIndex Resolver::FindRoot(ItemIndex from, std::string_view feature, std::string_view href,
                             Word type) {
  const IdTarget* entry = FindOrWarn(from, feature, href, true);
  if (entry == nullptr) return kNoItem;
  if (!entry->inner && reading_.RootNode(entry->item)) {
    const Word found = reading_.items[entry->item].type;
    if (type == Word::kNone ? IsValue(found) : found == type) return entry->item;
  }
  WarnMisplaced(from, from, entry->item);
  return kNoItem;
}

void Resolver::ResolveAll(const Reference& reference) {
  const std::string_view feature = TextOf(reference.feature);
  const bool isVoid = reference.isHref && std::string_view(reference.text).ends_with("#void");
  if (isVoid) reading_.items[reference.from].flags |= Item::kTypedVoid;
  const auto add = [&](std::string_view text) {
    const ItemIndex found = Find(reference.from, feature, text, reference.isHref);
    reading_.links.push_back({reference.from, found, reference.feature});
  };
  if (reference.isHref) return add(reference.text);
  std::string_view ids = reference.text;
  for (std::string_view id = TakeWord(ids); !id.empty(); id = TakeWord(ids)) add(id);
}

void Resolver::Prefetch(const Reference& reference) const {
  __builtin_prefetch(reference.text);
  if (!reference.isHref) {
    reading_.ids.Prefetch(reading_.items[reference.from].file, reference.hash);
  }
}

/// Most references are one id of their own file; all others go the long way.
void Resolver::Resolve(const Reference& reference) {
  const FileIndex file = reading_.items[reference.from].file;
  const std::string_view text = reference.text;
  const bool isOne = !reference.isHref && text.find(' ') == std::string_view::npos;
  const IdTarget* entry = isOne ? reading_.ids.Find(file, text, reference.hash) : nullptr;
  if (entry == nullptr) return ResolveAll(reference);
  const ItemIndex found = entry->inner ? kNoItem : entry->item;
  reading_.links.push_back({reference.from, found, reference.feature});
}

void Resolver::ResolveReferences() {
  constexpr std::size_t kAhead = 16;
  const std::vector<Reference>& references = reading_.references;
  // Some references have several ids. Room that isn't used costs nothing, but moving links does.
  reading_.links.reserve(2 * references.size());
  for (std::size_t i = 0; i < references.size(); ++i) {
    if (i + kAhead < references.size()) Prefetch(references[i + kAhead]);
    if (!IsOwnedFeature(references[i].feature)) Resolve(references[i]);
  }
  const auto isBefore = [](const Link& a, const Link& b) { return a.from < b.from; };
  std::vector<Link>& links = reading_.links;
  if (!std::is_sorted(links.begin(), links.end(), isBefore)) {
    std::stable_sort(links.begin(), links.end(), isBefore);
  }
}

void Resolver::FillPlaces() {
  for (const Reference& reference : reading_.references) {
    if (!IsOwnedFeature(reference.feature)) continue;
    const IdTarget* entry =
        FindOrWarn(reference.from, TextOf(reference.feature), reference.text, reference.isHref);
    if (entry != nullptr) FillPlace(reference.from, *entry);
  }
  RestoreDocumentOrder(reading_, placements_);
}

void Resolver::FillPlace(ItemIndex place, const IdTarget& target) {
  const ItemIndex owner = reading_.items[place].owner;
  const ItemIndex top = TopOf(place);
  if (target.inner || reading_.items[target.item].owner != kNoItem || top == target.item) {
    return WarnMisplaced(place, owner, target.item);
  }
  Item& item = reading_.items[target.item];
  item.owner = owner;
  item.flags |= reading_.items[place].flags & Item::kMember;
  placements_.push_back({place, target.item});
  tops_[target.item] = top;
}

/// The outermost owner of an item, as far as places are filled. Ways once gone are shortened: files
/// may hold each other in long chains.
ItemIndex Resolver::TopOf(ItemIndex item) {
  ItemIndex top = reading_.RootOf(item);
  for (auto at = tops_.find(top); at != tops_.end(); at = tops_.find(top)) {
    const auto above = tops_.find(at->second);
    if (above != tops_.end()) at->second = above->second;
    top = at->second;
  }
  return top;
}

void Resolver::WarnMisplaced(ItemIndex place, ItemIndex owner, ItemIndex found) {
  const std::string what = found == kNoItem ? "a stereotype's mark" : reading_.Describe(found);
  reading_.Warn(place, "misplaced-element",
                "an element of another file stands in " + reading_.Describe(owner) +
                    " but belongs elsewhere: " + what);
}

}  // namespace xmi
