// Applies the stereotypes of the files and lets them decide what their elements are.
#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "xmi/passes/passes.h"
#include "xmi/passes/resolver.h"
#include "xmi/tables/profile.h"
#include "xmi/text/scanning.h"

namespace xmi {
namespace {

using model::Symbol;

// The metaclass under which the agent looks for a stereotype, where that is only one. Users may
// draw such a classifier as whatever their tool suggests.
Symbol MetaclassFor(Symbol stereotype) {
  for (const Symbol known :
       {stereotypes::corbaStruct, stereotypes::corbaUnion, stereotypes::corbaException,
        stereotypes::corbaSequence, stereotypes::corbaBoxedValue, stereotypes::corbaComponent,
        stereotypes::corbaComponentImpl, stereotypes::corbaHomeImpl, stereotypes::corbaSegment}) {
    if (known == stereotype) return metaclasses::class_;
  }
  for (const Symbol known :
       {stereotypes::corbaValue, stereotypes::corbaEvent, stereotypes::corbaHome}) {
    if (known == stereotype) return metaclasses::interface;
  }
  return stereotype == stereotypes::corbaEnum ? metaclasses::dataType : Symbol();
}

// Where stereotypes ask for different metaclasses, the one that the agent asks for first counts.
int RankOf(Symbol metaclass) {
  if (metaclass == metaclasses::class_) return 0;
  return metaclass == metaclasses::interface ? 1 : 2;
}

// Tools put "_" before a name that isn't good for theirs.
std::string_view StereotypeName(std::string_view tag, const Profile& profile) {
  const std::string_view name = SplitName(tag).local;
  const bool isEscaped = name.size() > 1 && name[0] == '_' && profile.Find(name) == nullptr;
  return isEscaped && profile.Find(name.substr(1)) != nullptr ? name.substr(1) : name;
}

class Applier {
 public:
  explicit Applier(Reading& reading) : reading_(reading), profile_(Profile::BuiltIn()) {}

  void Run() {
    profile_.Declare(reading_.model);
    for (const Application& application : reading_.applications) Apply(application);
    if (hasHolders_) MakeConstants();
  }

 private:
  /// What is the same for all applications of one stereotype.
  struct Known {
    model::Element* element = nullptr;
    bool isCorba = false;  ///< One of the CORBA profile's own marks of declarations.
    Symbol metaclass;      ///< That a classifier gets; the empty name for its own.
    bool holdsConstants = false;
  };
  using Tags = std::vector<std::pair<std::string_view, std::vector<std::string_view>>>;

  void Apply(const Application& application) {
    const std::string_view name = StereotypeName(application.node.name(), profile_);
    // Left behind by another exporter that was broken off; it would be removed anyway.
    if (name == stereotypes::node.Text()) {
      ++reading_.passedOver[application.node.name()];
      return;
    }
    const Known& known = KnownOf(name);
    for (const ItemIndex subject : SubjectsOf(application, name)) {
      if (!RequireFirst(subject, name, *known.element)) continue;
      model::Element& element = *reading_.items[subject].element;
      SetTags(reading_.model.Apply(element, *known.element), name, application);
      Mark(subject, known);
    }
  }

  const Known& KnownOf(std::string_view name) {
    const auto found = known_.find(name);
    if (found != known_.end()) return found->second;
    const Symbol symbol(name);
    const bool isCorba =
        name.starts_with(stereotypes::corba.Text()) && profile_.Find(name) != nullptr;
    const Known known{&reading_.model.Stereotype(symbol), isCorba, MetaclassFor(symbol),
                      symbol == stereotypes::corbaConstants};
    return known_.emplace(name, known).first->second;
  }

  std::vector<ItemIndex> SubjectsOf(const Application& application, std::string_view name) {
    std::vector<ItemIndex> subjects;
    bool exists = false;
    const auto add = [&](const IdOrHref& reference) {
      const IdTarget* target = FindTarget(reading_, application.file, reference);
      if (target == nullptr) return;
      exists = true;
      const bool isUsable = !target->inner && reading_.items[target->item].element != nullptr;
      if (isUsable) subjects.push_back(target->item);
    };
    for (const pugi::xml_attribute attribute : application.node.attributes()) {
      if (!IsBase(attribute.name())) continue;
      ForEachWord(attribute.value(), [&](std::string_view id) { add({id, false}); });
    }
    for (const pugi::xml_node child : application.node.children()) {
      if (IsBase(child.name())) add(ReferenceOf(child));
    }
    if (!exists) {
      reading_.diagnostics.Add(reading_.LocateNode(application.file, application.node),
                               "stereotype-dangling",
                               "the stereotype " + std::string(name) +
                                   " is applied to nothing that is in the model; passed over");
    }
    RemoveRepeated(subjects);  // a subject is named once for each metaclass that is extended
    return subjects;
  }

  bool RequireFirst(ItemIndex subject, std::string_view name, const model::Element& stereotype) {
    const auto others = reading_.items[subject].element->Entities(properties::stereotypeInstance);
    for (const model::Element* other : others) {
      if (other->Entity(properties::instanceOf) != &stereotype) continue;
      reading_.Warn(subject, "stereotype-twice",
                    "the stereotype " + std::string(name) + " is applied twice to " +
                        reading_.Describe(subject) + "; the first counts");
      return false;
    }
    if (others.size() < kMostOfAKind) return true;
    throw ReadError(reading_.Locate(subject), "more than " + std::to_string(kMostOfAKind) +
                                                  " stereotypes are applied to " +
                                                  reading_.Describe(subject));
  }

  void Mark(ItemIndex subject, const Known& known) {
    Item& item = reading_.items[subject];
    if (known.isCorba) item.flags |= Item::kMarked;
    if (!IsClassifier(item.type)) return;
    const bool inPackage = item.owner != kNoItem && IsPackage(reading_.items[item.owner].type);
    if (known.holdsConstants && inPackage) {
      item.flags |= Item::kHolder;
      hasHolders_ = true;
    }
    if (known.metaclass == Symbol()) return;
    const bool isDecided = item.Has(Item::kOverridden);
    if (isDecided && RankOf(item.element->Metaclass()) <= RankOf(known.metaclass)) return;
    item.element->SetMetaclass(known.metaclass);
    item.flags |= Item::kOverridden;
  }

  void SetTags(model::Element& instance, std::string_view stereotype,
               const Application& application) {
    std::size_t count = 0;
    for (const pugi::xml_attribute attribute : application.node.attributes()) {
      const std::string_view name = attribute.name();
      const bool isTag = name.find(':') == name.npos && name != "xmlns" && !IsBase(name);
      if (!isTag) continue;
      RequireFew(++count, application);
      SetTag(instance, stereotype, name, {attribute.value()});
    }
    Tags tags;
    for (const pugi::xml_node child : application.node.children()) {
      const std::string_view name = child.name();
      const bool isTag = child.type() == pugi::node_element && name.find(':') == name.npos &&
                         !IsBase(name) && PrefixedAttribute(child, "nil") != "true";
      if (!isTag) continue;
      auto tag = std::find_if(tags.begin(), tags.end(), [&](auto& t) { return t.first == name; });
      if (tag == tags.end()) {
        RequireFew(++count, application);
        tag = tags.insert(tags.end(), {name, {}});
      }
      std::string buffer;
      const std::string_view text = TextOf(child, buffer);
      tag->second.push_back(text.data() == buffer.data() ? reading_.model.Store(text) : text);
    }
    for (const auto& [name, texts] : tags) SetTag(instance, stereotype, name, texts);
  }

  void RequireFew(std::size_t tags, const Application& application) const {
    if (tags <= kMostOfAKind) return;
    throw ReadError(
        reading_.LocateNode(application.file, application.node),
        "a stereotype has more than " + std::to_string(kMostOfAKind) + " tagged values");
  }

  void SetTag(model::Element& instance, std::string_view stereotype, std::string_view tag,
              const std::vector<std::string_view>& texts) {
    const Profile::Tag* const declared = profile_.FindTag(stereotype, tag);
    const Symbol symbol(tag);
    const bool isList = declared == nullptr ? texts.size() > 1 : declared->isList;
    if (isList) return reading_.model.SetListTag(instance, symbol, texts);
    const bool isText = declared == nullptr || declared->isText;
    reading_.model.SetTag(instance, symbol, isText ? texts.front() : Trimmed(texts.front()));
  }

  // UML gives packages no attributes, so a class holds those that are constants of its package.
  void MakeConstants() {
    model::Element& stereotype = reading_.model.Stereotype(stereotypes::corbaAttribute);
    for (ItemIndex index = 0; index < reading_.items.Size(); ++index) {
      const Item& item = reading_.items[index];
      if (item.type != Word::kProperty || item.owner == kNoItem || item.element == nullptr)
        continue;
      if (!reading_.items[item.owner].Has(Item::kHolder)) continue;
      model::Element* application = item.element->Application(stereotypes::corbaAttribute);
      if (application == nullptr) application = &reading_.model.Apply(*item.element, stereotype);
      reading_.model.SetTag(*application, tags::isConstant, "true");
    }
  }

  Reading& reading_;
  const Profile& profile_;
  std::map<std::string, Known, std::less<>> known_;
  bool hasHolders_ = false;
};

}  // namespace

void ApplyStereotypes(Reading& reading) { Applier(reading).Run(); }

}  // namespace xmi
