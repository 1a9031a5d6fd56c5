#include "xmi/passes/stereotypes.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "xmi/text/start_tag.h"

namespace xmi {
namespace {

bool IsBase(std::string_view name) { return name.substr(0, 5) == "base_"; }

// The metaclass under which the agent looks for a stereotype, where that is only one.
model::Symbol MetaclassFor(model::Symbol stereotype) {
  for (const model::Symbol known :
       {stereotypes::corbaStruct, stereotypes::corbaUnion, stereotypes::corbaException,
        stereotypes::corbaSequence, stereotypes::corbaBoxedValue, stereotypes::corbaComponent,
        stereotypes::corbaComponentImpl, stereotypes::corbaHomeImpl, stereotypes::corbaSegment}) {
    if (known == stereotype) return metaclasses::class_;
  }
  for (const model::Symbol known :
       {stereotypes::corbaValue, stereotypes::corbaEvent, stereotypes::corbaHome}) {
    if (known == stereotype) return metaclasses::interface;
  }
  return stereotype == stereotypes::corbaEnum ? metaclasses::dataType : model::Symbol();
}

// Where stereotypes ask for different metaclasses, the one that the agent asks for first counts.
int RankOf(model::Symbol metaclass) {
  if (metaclass == metaclasses::class_) return 0;
  return metaclass == metaclasses::interface ? 1 : 2;
}

// Tools put "_" before a name that isn't good for theirs.
std::string_view StereotypeName(std::string_view tag, const Profile& profile) {
  const std::string_view name = SplitName(tag).local;
  const bool escaped = name.size() > 1 && name[0] == '_' && profile.Find(name) == nullptr;
  return escaped && profile.Find(name.substr(1)) != nullptr ? name.substr(1) : name;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(" \t\r\n");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t\r\n") - begin + 1);
}

}  // namespace

void Stereotypes::Apply() {
  profile_.Declare(reading_.model);
  for (const Application& application : reading_.applications) ApplyOne(application);
  MakeConstants();
}

const Stereotypes::Known& Stereotypes::KnownOf(std::string_view name) {
  const auto found = known_.find(name);
  if (found != known_.end()) return found->second;
  const model::Symbol symbol(name);
  Known known;
  known.element = &reading_.model.Stereotype(symbol);
  known.isCorba = name.starts_with(stereotypes::corba.Text()) && profile_.Find(name) != nullptr;
  known.metaclass = MetaclassFor(symbol);
  known.holdsConstants = symbol == stereotypes::corbaConstants;
  return known_.emplace(name, known).first->second;
}

void Stereotypes::ApplyOne(const Application& application) {
  const std::string_view name = StereotypeName(application.node.name(), profile_);
  if (name == stereotypes::node
                  .Text()) {  // left behind by an export that was broken off; the run makes its own
    ++reading_.passedOver[application.node.name()];
    return;
  }
  const Known& known = KnownOf(name);
  for (const ItemIndex subject : SubjectsOf(application, name)) {
    model::Element& element = *reading_.items[subject].element;
    bool applied = false;
    const auto others = element.Entities(properties::stereotypeInstance);
    for (const model::Element* other : others) {
      applied = applied || other->Entity(properties::instanceOf) == known.element;
    }
    if (applied) {
      reading_.Warn(subject, "stereotype-twice",
                    "the stereotype " + std::string(name) + " is applied twice to " +
                        reading_.Describe(subject) + "; the first counts");
      continue;
    }
    if (others.size() == kMostOfAKind) {
      reading_.Refuse(reading_.Locate(subject), "more than " + std::to_string(kMostOfAKind) +
                                                    " stereotypes are applied to " +
                                                    reading_.Describe(subject));
    }
    SetTags(reading_.model.Apply(element, *known.element), name, application);
    Mark(subject, known);
  }
}

std::vector<ItemIndex> Stereotypes::SubjectsOf(const Application& application,
                                               std::string_view name) {
  std::vector<ItemIndex> subjects;
  bool exists = false;
  for (const pugi::xml_attribute attribute : application.node.attributes()) {
    if (!IsBase(attribute.name())) continue;
    ForEachWord(attribute.value(),
                [&](std::string_view id) { AddSubject(application, id, false, subjects, exists); });
  }
  for (const pugi::xml_node child : application.node.children()) {
    if (!IsBase(child.name())) continue;
    const std::string_view href = LocalAttribute(child, "href", false);
    const std::string_view idref = LocalAttribute(child, "idref", true);
    AddSubject(application, href.empty() ? idref : href, !href.empty(), subjects, exists);
  }
  if (!exists) {
    reading_.diagnostics.Add(reading_.LocateNode(application.file, application.node),
                             "stereotype-dangling",
                             "the stereotype " + std::string(name) +
                                 " is applied to nothing that is in the model; passed over");
  }
  if (subjects.size() > 1) {
    std::unordered_set<ItemIndex> present;
    std::erase_if(subjects, [&](ItemIndex each) { return !present.insert(each).second; });
  }
  return subjects;
}

void Stereotypes::AddSubject(const Application& application, std::string_view text, bool isHref,
                             std::vector<ItemIndex>& subjects, bool& exists) {
  const IdTarget* entry = resolver_.FindEntry(application.file, text, isHref);
  if (entry == nullptr) return;
  exists = true;
  const bool usable = !entry->inner && reading_.items[entry->item].element != nullptr;
  if (usable) subjects.push_back(entry->item);
}

void Stereotypes::Mark(ItemIndex subject, const Known& known) {
  Item& item = reading_.items[subject];
  if (known.isCorba) item.flags |= Item::kMarked;
  if (!IsClassifier(item.type)) return;
  const bool inPackage = item.owner != kNoItem && IsPackage(reading_.items[item.owner].type);
  if (known.holdsConstants && inPackage) {
    item.flags |= Item::kHolder;
    holders_.push_back(subject);
  }
  if (known.metaclass == model::Symbol()) return;
  const bool decided = (item.flags & Item::kOverridden) != 0;
  if (decided && RankOf(item.element->Metaclass()) <= RankOf(known.metaclass)) return;
  item.element->SetMetaclass(known.metaclass);
  item.flags |= Item::kOverridden;
}

void Stereotypes::SetTags(model::Element& instance, std::string_view stereotype,
                          const Application& application) {
  std::size_t count = 0;
  for (const pugi::xml_attribute attribute : application.node.attributes()) {
    const std::string_view name = attribute.name();
    const bool isTag = name.find(':') == std::string_view::npos && name != "xmlns";
    if (!isTag || IsBase(name)) continue;
    RequireFew(++count, application);
    SetTag(instance, stereotype, name, {attribute.value()});
  }
  std::vector<std::pair<std::string_view, std::vector<std::string_view>>> tags;
  for (const pugi::xml_node child : application.node.children()) {
    const std::string_view name = child.name();
    if (child.type() != pugi::node_element || IsBase(name)) continue;
    if (name.find(':') != std::string_view::npos) continue;
    if (LocalAttribute(child, "nil", true) == "true") continue;
    auto tag = std::find_if(tags.begin(), tags.end(), [&](auto& t) { return t.first == name; });
    if (tag == tags.end()) {
      RequireFew(++count, application);
      tag = tags.insert(tags.end(), {name, {}});
    }
    std::string buffer;
    const std::string_view text = TextOf(child, buffer);
    tag->second.push_back(text.data() == buffer.data() ? reading_.model.Store(text) : text);
  }
  for (const auto& [name, values] : tags) SetTag(instance, stereotype, name, values);
}

void Stereotypes::RequireFew(std::size_t tags, const Application& application) const {
  if (tags <= kMostOfAKind) return;
  reading_.Refuse(reading_.LocateNode(application.file, application.node),
                  "a stereotype has more than " + std::to_string(kMostOfAKind) + " tagged values");
}

void Stereotypes::SetTag(model::Element& instance, std::string_view stereotype,
                         std::string_view tag, const std::vector<std::string_view>& values) {
  const Profile::Tag* const declared = profile_.FindTag(stereotype, tag);
  const model::Symbol symbol(tag);
  const bool isList = declared == nullptr ? values.size() > 1 : declared->isList;
  if (isList) return reading_.model.SetListTag(instance, symbol, values);
  const bool isText = declared == nullptr || declared->isText;
  const std::string_view value = isText ? values.front() : Trimmed(values.front());
  reading_.model.SetTag(instance, symbol, value);
}

void Stereotypes::MakeConstants() {
  if (holders_.empty()) return;
  model::Element& attribute = reading_.model.Stereotype(stereotypes::corbaAttribute);
  for (std::size_t i = 0; i < reading_.items.Size(); ++i) {
    const Item& item = reading_.items[static_cast<ItemIndex>(i)];
    if (item.type != Word::kProperty || item.owner == kNoItem || item.element == nullptr) continue;
    if (!reading_.items[item.owner].Has(Item::kHolder)) continue;
    model::Element* application = item.element->Application(stereotypes::corbaAttribute);
    if (application == nullptr) application = &reading_.model.Apply(*item.element, attribute);
    reading_.model.SetTag(*application, tags::isConstant, "true");
  }
}

}  // namespace xmi
