// Goes through the files and makes the model's elements; what they refer to is put down for later.
//
// It decides what in a file is part of the model and what is passed over, and knows nothing of what
// the parts mean to each other.
#include <string>
#include <string_view>
#include <vector>

#include "xmi/passes/element_builder.h"
#include "xmi/passes/passes.h"
#include "xmi/tables/profile.h"

namespace xmi {
namespace {

constexpr std::size_t kMaxDepth = 1000;
constexpr std::size_t kBytesPerEntry = 100;  // of a usual file; others make the tables grow
// Keywords stand in an annotation with this source, whatever version of UML the file is of.
constexpr std::string_view kKeywordSource = "http://www.eclipse.org/uml2/2.0.0/UML";
constexpr std::string_view kEcoreUri = "http://www.eclipse.org/emf/2002/Ecore";

pugi::xml_node BaseChild(pugi::xml_node node) {
  return node.find_child([](pugi::xml_node child) { return IsBase(child.name()); });
}

/// What a part is called that is passed over.
std::string KindOf(const StartTag& tag) {
  if (tag.IsForeign() || tag.typeName.empty()) return std::string(tag.name);
  return (tag.typeSpace == Space::kUml ? "uml:" : "") + std::string(tag.typeName);
}

/// Why a file is no model; empty when it is one. `tag` is its root's.
std::string RootError(pugi::xml_node root, const StartTag& tag, const Namespaces& namespaces) {
  constexpr const char* kEcoreModel = "is an Ecore model, no UML model";
  const QualifiedName name = SplitName(tag.name);
  if (root.attribute("xmi.version")) {
    return "is XMI of UML 1, which is not supported; export the model as UML 2 in XMI 2";
  }
  if (name.local == "Diagram") return "is a diagram, no UML model";
  if (namespaces.UriOf(name.prefix) == kEcoreUri) return kEcoreModel;
  if (name.local == "html" || name.local == "HTML") return "is an HTML page, no UML model";
  if (tag.space == Space::kUml) return "";
  const bool isXmi = tag.space == Space::kXmi && tag.tag == Word::kXmi;
  if (!isXmi) return "is no UML model: its root element is <" + std::string(tag.name) + ">";
  for (const pugi::xml_node child : root.children()) {
    if (child.type() != pugi::node_element) continue;
    Namespaces scope = namespaces;
    StartTag below;
    below.ReadRoot(child, scope);
    if (below.space == Space::kUml || below.hasBase || BaseChild(child)) return "";
    if (scope.UriOf(SplitName(below.name).prefix) == kEcoreUri) return kEcoreModel;
  }
  return "is no UML model: there is no UML element in it";
}

class FileWalker {
 public:
  FileWalker(Reading& reading, FileIndex file)
      : reading_(reading),
        builder_(reading),
        file_(file),
        document_(*reading.files[file].document) {}

  void Walk() {
    // The model file's elements answer their URI by default.
    if (file_ != 0) uri_ = reading_.model.Store(UriOf(document_.Path()));
    const std::size_t size = document_.Size();
    reading_.ids.AddFile(size);
    // Room that isn't used costs nothing, but moving millions of entries to larger room does.
    reading_.items.Reserve(size / kBytesPerEntry);
    ReserveMore(reading_.references, size / kBytesPerEntry);
    before_ = reading_.progress.total;
    reading_.progress.total += size;
    const pugi::xml_node root = document_.Root();
    tag_.ReadRoot(root, namespaces_);
    const std::string error = RootError(root, tag_, namespaces_);
    if (!error.empty()) {
      const Location location = reading_.LocateNode(file_, root);
      if (file_ == 0) throw ReadError(location, error);
      return reading_.diagnostics.Add(location, "file-not-a-model", location.file + " " + error);
    }
    const bool isXmi = tag_.space == Space::kXmi;
    offset_ = document_.OffsetOf(root);
    WalkBelow({root, isXmi ? Below{Mode::kRoots, kNoItem} : EnterRoot(root), namespaces_.Mark()});
    EnterIds();
    reading_.progress.done = reading_.progress.total.load();
  }

 private:
  /// What is looked for below an element.
  enum class Mode : unsigned char {
    kRoots,    ///< roots of the model and applications of stereotypes
    kMembers,  ///< features of an item
    kValue,    ///< ids, and hrefs of what values and bindings refer to
    kIds,      ///< ids alone: what stands here is passed over
    kSkip,     ///< nothing
  };
  struct Below {
    Mode mode = Mode::kSkip;
    ItemIndex item = kNoItem;
  };
  struct SeenId {
    const char* id;
    std::uint32_t hash;
    IdTarget target;
    std::uint32_t offset;
  };
  struct Frame {
    pugi::xml_node node;
    Below below;
    std::size_t mark;  // of the namespaces, before the node's own
  };

  [[noreturn]] void Fail(pugi::xml_node node, const std::string& text) const {
    throw ReadError(reading_.LocateNode(file_, node), text);
  }

  /// Without recursion: the depth of a file is up to whoever wrote it.
  void WalkBelow(const Frame& top) {
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
      offset_ = document_.OffsetOf(node);
      reading_.progress.done.store(before_ + offset_, std::memory_order_relaxed);
      const std::size_t mark = namespaces_.Mark();
      const Below below = Enter(node, stack.back().below);
      if (namespaces_.Mark() > kMostOfAKind) FailCrowded(node, "namespaces in force");
      const pugi::xml_node child =
          below.mode == Mode::kSkip ? pugi::xml_node() : node.first_child();
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

  [[noreturn]] void FailTooDeep(pugi::xml_node node) const {
    Fail(node, "elements are nested too deeply to be a model (more than " +
                   std::to_string(kMaxDepth) + ")");
  }

  [[noreturn]] void FailCrowded(pugi::xml_node node, const std::string& what) const {
    Fail(node, "there are more than " + std::to_string(kMostOfAKind) + " " + what);
  }

  Below Enter(pugi::xml_node node, const Below& above) {
    if (above.mode == Mode::kRoots) {
      tag_.ReadRoot(node, namespaces_);
      return EnterRoot(node);
    }
    tag_.Read(node, namespaces_);
    if (tag_.IsForeign()) return EnterForeign(node);
    return above.mode == Mode::kMembers ? EnterMember(node, above.item) : EnterInner(above);
  }

  Below EnterRoot(pugi::xml_node node) {
    if (tag_.space == Space::kUml) {
      tag_.typeName = SplitName(tag_.name).local;
      tag_.typeSpace = Space::kUml;
      const Word type = FindType(tag_.typeName);
      const ItemIndex root = BuildItem(type, kNoItem);
      reading_.roots.push_back({root, node});
      return {IsPart(type) ? Mode::kValue : Mode::kMembers, root};
    }
    return IsApplication(node) ? EnterApplication(node) : EnterForeign(node);
  }

  Below EnterForeign(pugi::xml_node node) {
    if (tag_.space == Space::kXmi && tag_.tag == Word::kExtension) {
      reading_.files[file_].extensions.push_back(node);
    }
    return PassOver({});
  }

  Below EnterMember(pugi::xml_node node, ItemIndex owner) {
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
        // A binding names the signature when it means the template.
        RememberId(owner, true);
        return {Mode::kIds, owner};
      case Word::kEAnnotations:
        TakeKeywords(node, owner);
        return {};
      default:
        return TakeFeature(node, owner) ? Below{} : PassOver({Mode::kIds, owner});
    }
  }

  Below EnterOwned(ItemIndex owner) {
    const bool isMember = IsMemberFeature(tag_.tag);
    if (!tag_.href.empty()) {
      const ItemIndex placeholder = builder_.BuildPlaceholder(tag_, owner, file_, offset_);
      if (isMember) reading_.items[placeholder].flags |= Item::kMember;
      return {};
    }
    Word type = tag_.type;
    if (tag_.typeName.empty()) {
      type = DefaultType(tag_.tag);
      if (type == Word::kNone) return PassOver({Mode::kIds, owner});
    } else if (tag_.typeSpace != Space::kUml) {
      return PassOver({});  // nothing of UML refers to what is in it
    }
    // An element of a type that means nothing to the agent is made all the same: what it owns may.
    if (type == Word::kNone) ++reading_.passedOver[KindOf(tag_)];
    const ItemIndex item = BuildItem(type, owner);
    if (isMember) reading_.items[item].flags |= Item::kMember;
    return {Mode::kMembers, item};
  }

  Below EnterValue(pugi::xml_node node, ItemIndex owner) {
    if (tag_.isNil) return {};
    const Word type = tag_.typeSpace == Space::kUml ? tag_.type : Word::kNone;
    ValueSpec value{{owner, node, tag_.href, owner}, tag_.tag, type, {}, false};
    for (const StartTag::Feature& feature : tag_.features) {
      if (feature.word != Word::kValue) continue;
      value.value = feature.value;
      value.hasValue = true;
    }
    reading_.values.push_back(value);
    return EnterPart(owner);
  }

  /// A value or a binding, which may stand in a file of its own.
  Below EnterPart(ItemIndex owner) {
    RememberId(owner, true);
    if (tag_.href.empty()) return {Mode::kValue, owner};
    OpenReferred();
    return {};
  }

  /// What stands in a part or in what is passed over.
  Below EnterInner(const Below& above) {
    if (tag_.tag == Word::kEAnnotations) return {};
    RememberId(above.item, true);
    const bool refers = tag_.tag == Word::kSignature || tag_.tag == Word::kActual ||
                        tag_.tag == Word::kOwnedActual || tag_.tag == Word::kInstance ||
                        tag_.tag == Word::kParameterSubstitution;
    if (above.mode == Mode::kValue && refers && !tag_.href.empty()) OpenReferred();
    return above;
  }

  /// Every file that is referred to is opened while there is a walk to go through it.
  void OpenReferred() { reading_.files.Follow(file_, tag_.href, offset_); }

  Below PassOver(const Below& below) {
    ++reading_.passedOver[KindOf(tag_)];
    if (below.mode == Mode::kIds) RememberId(below.item, true);
    return below;
  }

  /// Applications without a base are told of later, so they are known by their namespace, too,
  /// or by their name where a tool gives the profile a namespace of its own making.
  bool IsApplication(pugi::xml_node node) const {
    if (tag_.space == Space::kXmi) return false;
    if (tag_.hasBase || BaseChild(node)) return true;
    const QualifiedName name = SplitName(tag_.name);
    if (name.prefix.empty()) return false;
    const std::string_view uri = namespaces_.UriOf(name.prefix);
    return uri.find("/schemas/") != uri.npos || Profile::BuiltIn().Find(name.local) != nullptr;
  }

  Below EnterApplication(pugi::xml_node node) {
    RememberId(kNoItem, true);
    reading_.applications.push_back({file_, node});
    for (const pugi::xml_node child : node.children()) {
      if (!IsBase(child.name())) continue;
      const std::string_view href = PlainAttribute(child, "href");
      if (!href.empty()) reading_.files.Follow(file_, href, document_.OffsetOf(child));
    }
    return {};
  }

  bool TakeFeature(pugi::xml_node node, ItemIndex owner) {
    if (IsReferenceFeature(tag_.tag)) {
      if (!tag_.idref.empty()) builder_.Refer(owner, tag_.tag, tag_.idref, false);
      if (!tag_.href.empty()) builder_.Refer(owner, tag_.tag, tag_.href, true);
      return true;
    }
    if (!IsSimpleFeature(tag_.tag)) return false;
    if (tag_.isNil) return true;
    std::string_view text = TextOf(node, text_);
    if (text.data() == text_.data()) text = reading_.model.Store(text);
    builder_.SetSimple(owner, tag_.tag, text);
    return true;
  }

  void TakeKeywords(pugi::xml_node node, ItemIndex owner) {
    if (PlainAttribute(node, "source") != kKeywordSource) return;
    for (const pugi::xml_node detail : node.children("details")) {
      std::string_view key = PlainAttribute(detail, "key");
      if (key.empty()) key = detail.child_value("key");
      if (key.empty()) continue;
      model::Element& element = *reading_.items[owner].element;
      reading_.model.AddKeyword(element, key);
      const bool isCrowded = element.Entities(properties::keyword).size() > kMostOfAKind;
      if (isCrowded) FailCrowded(node, "keywords on one element");
    }
  }

  ItemIndex BuildItem(Word type, ItemIndex owner) {
    const ItemIndex item = builder_.Build(tag_, type, owner, file_, offset_);
    if (!uri_.empty()) reading_.items[item].element->SetTextView(properties::uri, uri_);
    RememberId(item, false);
    return item;
  }

  /// Ids are entered a few hundred at a time, so that the table's memory can be fetched ahead.
  void RememberId(ItemIndex item, bool inner) {
    constexpr std::size_t kMost = 512;
    if (tag_.id.empty()) return;
    const std::uint32_t hash = Ids::HashOf(tag_.id);
    seenIds_.push_back({tag_.id.data(), hash, {item, inner}, offset_});
    if (seenIds_.size() == kMost) EnterIds();
  }

  void EnterIds() {
    constexpr std::size_t kAhead = 16;
    for (std::size_t i = 0; i < seenIds_.size(); ++i) {
      const SeenId& seen = seenIds_[i];
      if (i + kAhead < seenIds_.size()) reading_.ids.Prefetch(file_, seenIds_[i + kAhead].hash);
      if (reading_.ids.Add(file_, seen.id, seen.hash, seen.target)) continue;
      reading_.diagnostics.Add(
          document_.Locate(seen.offset), "duplicate-id",
          "the id \"" + std::string(seen.id) + "\" stands twice; the first counts");
    }
    seenIds_.clear();
  }

  Reading& reading_;
  ElementBuilder builder_;
  const FileIndex file_;
  const Document& document_;
  std::size_t before_ = 0;  // bytes of the files walked before
  Namespaces namespaces_;
  StartTag tag_;
  std::string text_;
  std::vector<SeenId> seenIds_;
  std::uint32_t offset_ = 0;  // of the element that is entered
  std::string_view uri_;      // that the file's elements answer; empty for the model's
};

}  // namespace

void WalkFiles(Reading& reading) {
  for (FileIndex file = 0; file < reading.files.Size(); ++file) FileWalker(reading, file).Walk();
}

}  // namespace xmi
