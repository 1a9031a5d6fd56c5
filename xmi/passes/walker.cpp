#include "xmi/passes/walker.h"

#include "xmi/tables/profile.h"

namespace xmi {
namespace {

constexpr std::size_t kMaxDepth = 1000;
constexpr std::size_t kBytesPerEntry = 100;
constexpr std::string_view kKeywordSource = "http://www.eclipse.org/uml2/2.0.0/UML";
constexpr std::string_view kEcoreUri = "http://www.eclipse.org/emf/2002/Ecore";

bool IsBase(std::string_view name) { return name.substr(0, 5) == "base_"; }

pugi::xml_node BaseChild(pugi::xml_node node) {
  return node.find_child([](pugi::xml_node child) { return IsBase(child.name()); });
}

bool IsMemberFeature(Word feature) {
  return feature >= Word::kPackagedElement && feature <= Word::kOwnedReception;
}

std::string KindOf(const StartTag& tag) {
  const bool known = tag.space == Space::kNone || tag.space == Space::kUml;
  if (!known || tag.typeName.empty()) return std::string(tag.name);
  return (tag.typeSpace == Space::kUml ? "uml:" : "") + std::string(tag.typeName);
}

}  // namespace

void Walker::Walk(FileIndex file) {
  file_ = file;
  uri_ = {};
  if (file != 0) uri_ = reading_.model.Store(UriOf(reading_.files[file].document->Path()));
  const std::size_t size = reading_.files[file].document->Size();
  reading_.ids.AddFile(size);
  // Room that isn't used costs nothing, but moving millions of entries to larger room does.
  reading_.items.Reserve(size / kBytesPerEntry);
  ReserveMore(reading_.references, size / kBytesPerEntry);
  before_ = reading_.progress.total;
  reading_.progress.total += size;
  namespaces_ = Namespaces();
  tag_ = StartTag();
  const pugi::xml_node root = reading_.files[file].document->Root();
  tag_.ReadRoot(root, namespaces_);
  const std::string problem = RootProblem(root);
  if (!problem.empty()) {
    const Location location = reading_.LocateNode(file, root);
    if (file == 0) throw ReadError(location, problem);
    return reading_.diagnostics.Add(location, "file-not-a-model", location.file + " " + problem);
  }
  const bool isXmi = tag_.space == Space::kXmi;
  offset_ = reading_.files[file].document->OffsetOf(root);
  WalkBelow({root, isXmi ? Below{Mode::kRoots, kNoItem} : EnterRoot(root), namespaces_.Mark()});
  EnterIds();
  reading_.progress.done = reading_.progress.total.load();
}

std::string Walker::RootProblem(pugi::xml_node root) const {
  const std::string name(tag_.name);
  const std::string_view local = SplitName(tag_.name).local;
  const std::string_view uri = namespaces_.UriOf(SplitName(tag_.name).prefix);
  if (root.attribute("xmi.version")) {
    return "is XMI of UML 1, which is not supported; export the model as UML 2 in XMI 2";
  }
  if (local == "Diagram") return "is a diagram, no UML model";
  if (uri == kEcoreUri) return "is an Ecore model, no UML model";
  if (local == "html" || local == "HTML") return "is an HTML page, no UML model";
  if (tag_.space == Space::kUml) return "";
  const bool isXmi = tag_.space == Space::kXmi && tag_.tag == Word::kXmi;
  if (!isXmi) return "is no UML model: its root element is <" + name + ">";
  for (const pugi::xml_node child : root.children()) {
    if (child.type() != pugi::node_element) continue;
    Namespaces scope = namespaces_;
    StartTag tag;
    tag.ReadRoot(child, scope);
    if (tag.space == Space::kUml || tag.hasBase || BaseChild(child)) return "";
    if (scope.UriOf(SplitName(tag.name).prefix) == kEcoreUri) {
      return "is an Ecore model, no UML model";
    }
  }
  return "is no UML model: there is no UML element in it";
}

void Walker::FailTooDeep(pugi::xml_node node) const {
  reading_.Refuse(
      reading_.LocateNode(file_, node),
      "elements are nested too deeply to be a model (more than " + std::to_string(kMaxDepth) + ")");
}

void Walker::FailCrowded(pugi::xml_node node, const std::string& what) const {
  reading_.Refuse(reading_.LocateNode(file_, node),
                  "there are more than " + std::to_string(kMostOfAKind) + " " + what);
}

void Walker::WalkBelow(const Frame& top) {
  std::vector<Frame> stack{top};
  pugi::xml_node node = top.node.first_child();
  while (true) {
    while (!node && stack.size() > 1) {
      namespaces_.Restore(stack.back().mark);
      node = stack.back().node.next_sibling();
      stack.pop_back();
    }
    if (!node) return;
    if (node.type() != pugi::node_element) {
      node = node.next_sibling();
      continue;
    }
    offset_ = reading_.files[file_].document->OffsetOf(node);
    reading_.progress.done.store(before_ + offset_, std::memory_order_relaxed);
    const std::size_t mark = namespaces_.Mark();
    const Below below = Enter(node, stack.back().below);
    if (namespaces_.Mark() > kMostOfAKind) FailCrowded(node, "namespaces in force");
    const pugi::xml_node child = below.mode == Mode::kSkip ? pugi::xml_node() : node.first_child();
    if (child) {
      if (stack.size() >= kMaxDepth) FailTooDeep(node);
      stack.push_back({node, below, mark});
      node = child;
    } else {
      namespaces_.Restore(mark);
      node = node.next_sibling();
    }
  }
}

Walker::Below Walker::Enter(pugi::xml_node node, const Below& above) {
  if (above.mode == Mode::kRoots) {
    tag_.ReadRoot(node, namespaces_);
    return EnterRoot(node);
  }
  tag_.Read(node, namespaces_);
  switch (above.mode) {
    case Mode::kMembers:
      return EnterMember(node, above.item);
    default:
      return EnterOther(node, above);
  }
}

Walker::Below Walker::EnterRoot(pugi::xml_node node) {
  if (tag_.space == Space::kUml) {
    tag_.typeName = SplitName(tag_.name).local;
    tag_.typeSpace = Space::kUml;
    const Word type = TypeOf(tag_.typeName);
    const ItemIndex root = BuildItem(type, kNoItem);
    reading_.roots.push_back({root, node});
    return {IsPart(type) ? Mode::kValue : Mode::kMembers, root};
  }
  if (IsApplication(node)) return EnterApplication(node);
  return EnterForeign(node);
}

Walker::Below Walker::EnterMember(pugi::xml_node node, ItemIndex owner) {
  if (tag_.space != Space::kNone && tag_.space != Space::kUml) return EnterForeign(node);
  if (IsOwnedFeature(tag_.tag)) return EnterOwned(owner);
  switch (tag_.tag) {
    case Word::kLowerValue:
    case Word::kUpperValue:
    case Word::kDefaultValue:
    case Word::kSpecification:
      return EnterValue(node, owner);
    case Word::kTemplateBinding:
      reading_.bindings.push_back({owner, node, tag_.href, owner});
      return EnterPart(owner);
    case Word::kOwnedTemplateSignature:
      RememberId(owner, true);
      return {Mode::kIds, owner};
    case Word::kEAnnotations:
      TakeKeywords(node, owner);
      return {};
    default:
      if (TakeFeature(node, owner)) return {};
      return PassOver({Mode::kIds, owner});
  }
}

Walker::Below Walker::EnterForeign(pugi::xml_node node) {
  if (tag_.space == Space::kXmi && tag_.tag == Word::kExtension) {
    reading_.files[file_].extensions.push_back(node);
  }
  return PassOver({});
}

Walker::Below Walker::EnterOwned(ItemIndex owner) {
  const bool isMember = IsMemberFeature(tag_.tag);
  if (!tag_.href.empty()) {
    const ItemIndex place = builder_.BuildPlace(tag_, owner, file_, offset_);
    if (isMember) reading_.items[place].flags |= Item::kMember;
    return {};
  }
  Word type = tag_.type;
  if (tag_.typeName.empty()) {
    type = DefaultType(tag_.tag);
    if (type == Word::kNone) return PassOver({Mode::kIds, owner});
  } else if (tag_.typeSpace != Space::kUml) {
    return PassOver({});
  }
  if (type == Word::kNone) ++reading_.passedOver[KindOf(tag_)];
  const ItemIndex item = BuildItem(type, owner);
  if (isMember) reading_.items[item].flags |= Item::kMember;
  return {Mode::kMembers, item};
}

Walker::Below Walker::EnterValue(pugi::xml_node node, ItemIndex owner) {
  if (tag_.nil) return {};
  const Word type = tag_.typeSpace == Space::kUml ? tag_.type : Word::kNone;
  ValueNode value{{owner, node, tag_.href, owner}, tag_.tag, type, {}, false};
  for (const StartTag::Feature& feature : tag_.features) {
    if (feature.word != Word::kValue) continue;
    value.value = feature.value;
    value.hasValue = true;
  }
  reading_.values.push_back(value);
  return EnterPart(owner);
}

/// A value or a binding, which may stand in a file of its own.
Walker::Below Walker::EnterPart(ItemIndex owner) {
  RememberId(owner, true);
  if (tag_.href.empty()) return {Mode::kValue, owner};
  reading_.files.Follow(file_, tag_.href, offset_);
  return {};
}

Walker::Below Walker::EnterOther(pugi::xml_node node, const Below& above) {
  const bool foreign = tag_.space != Space::kNone && tag_.space != Space::kUml;
  if (foreign) return EnterForeign(node);
  if (tag_.tag == Word::kEAnnotations) return {};
  RememberId(above.item, true);
  const bool refers = tag_.tag == Word::kSignature || tag_.tag == Word::kActual ||
                      tag_.tag == Word::kOwnedActual || tag_.tag == Word::kInstance ||
                      tag_.tag == Word::kParameterSubstitution;
  if (above.mode == Mode::kValue && refers && !tag_.href.empty()) {
    reading_.files.Follow(file_, tag_.href, offset_);
  }
  return above;
}

Walker::Below Walker::PassOver(const Below& below) {
  ++reading_.passedOver[KindOf(tag_)];
  if (below.mode == Mode::kIds) RememberId(below.item, true);
  return below;
}

bool Walker::IsApplication(pugi::xml_node node) const {
  if (tag_.space == Space::kXmi) return false;
  if (tag_.hasBase || BaseChild(node)) return true;
  const QualifiedName name = SplitName(tag_.name);
  if (name.prefix.empty()) return false;
  return namespaces_.UriOf(name.prefix).find("/schemas/") != std::string_view::npos ||
         Profile::BuiltIn().Find(name.local) != nullptr;
}

Walker::Below Walker::EnterApplication(pugi::xml_node node) {
  RememberId(kNoItem, true);
  reading_.applications.push_back({file_, node});
  for (const pugi::xml_node child : node.children()) {
    if (!IsBase(child.name())) continue;
    const std::string_view href = LocalAttribute(child, "href", false);
    if (href.empty()) continue;
    reading_.files.Follow(file_, href, reading_.files[file_].document->OffsetOf(child));
  }
  return {};
}

bool Walker::TakeFeature(pugi::xml_node node, ItemIndex owner) {
  if (IsReferenceFeature(tag_.tag)) {
    if (!tag_.idref.empty()) builder_.Refer(owner, tag_.tag, tag_.idref, false);
    if (!tag_.href.empty()) builder_.Refer(owner, tag_.tag, tag_.href, true);
    return true;
  }
  if (!IsSimpleFeature(tag_.tag)) return false;
  if (tag_.nil) return true;
  std::string_view text = TextOf(node, text_);
  if (text.data() == text_.data()) text = reading_.model.Store(text);
  builder_.SetSimple(owner, tag_.tag, text);
  return true;
}

void Walker::TakeKeywords(pugi::xml_node node, ItemIndex owner) {
  if (LocalAttribute(node, "source", false) != kKeywordSource) return;
  for (const pugi::xml_node detail : node.children("details")) {
    std::string_view key = LocalAttribute(detail, "key", false);
    if (key.empty()) key = detail.child_value("key");
    if (key.empty()) continue;
    model::Element& element = *reading_.items[owner].element;
    reading_.model.AddKeyword(element, key);
    if (element.Entities(properties::keyword).size() > kMostOfAKind) {
      FailCrowded(node, "keywords on one element");
    }
  }
}

ItemIndex Walker::BuildItem(Word type, ItemIndex owner) {
  const ItemIndex item = builder_.Build(tag_, type, owner, file_, offset_);
  if (!uri_.empty()) reading_.items[item].element->SetTextView(properties::uri, uri_);
  RememberId(item, false);
  return item;
}

// Ids are entered a few hundred at a time, so that the table's memory can be fetched ahead.
void Walker::RememberId(ItemIndex item, bool inner) {
  constexpr std::size_t kMost = 512;
  if (tag_.id.empty()) return;
  const std::uint32_t hash = Ids::HashOf(tag_.id);
  seenIds_.push_back({tag_.id.data(), hash, {item, inner}, offset_});
  if (seenIds_.size() == kMost) EnterIds();
}

void Walker::EnterIds() {
  constexpr std::size_t kAhead = 16;
  for (std::size_t i = 0; i < seenIds_.size(); ++i) {
    const SeenId& seen = seenIds_[i];
    if (i + kAhead < seenIds_.size()) reading_.ids.Prefetch(file_, seenIds_[i + kAhead].hash);
    if (reading_.ids.Add(file_, seen.id, seen.hash, seen.target)) continue;
    reading_.diagnostics.Add(
        reading_.files[file_].document->Locate(seen.offset), "duplicate-id",
        "the id \"" + std::string(seen.id) + "\" stands twice; the first counts");
  }
  seenIds_.clear();
}

}  // namespace xmi
