#include "model/model.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "model/storage.h"
#include "model/vocabulary.h"

namespace model {

namespace {

std::vector<Element*> MembersOf(const std::vector<Element*>& owners) {
  std::vector<Element*> members;
  for (const Element* owner : owners) {
    const auto owned = owner->Entities(properties::ownedMember);
    members.insert(members.end(), owned.begin(), owned.end());
  }
  return members;
}

/// The first element that the path leads to from one of the candidates. Names need not be unique,
/// so all elements of a name are followed. An empty name leads nowhere.
Element* Walk(std::vector<Element*> candidates, std::string_view path) {
  while (path.starts_with('@')) {
    path.remove_prefix(1);
    const std::string_view name = path.substr(0, path.find('@'));
    path.remove_prefix(name.size());
    std::erase_if(candidates, [&](const Element* candidate) {
      return name.empty() || candidate->Text(properties::name) != name;
    });
    if (path.empty()) return candidates.empty() ? nullptr : candidates.front();
    candidates = MembersOf(candidates);
  }
  return nullptr;
}

}  // namespace

Model::Model() : impl_(std::make_unique<Impl>()) {
  impl_->session = &Create(metaclasses::session);
  impl_->profile = &Create(metaclasses::package);
  impl_->profile->SetText(properties::name, stereotypes::corba.Text());
  Stereotype(stereotypes::corba);
  Stereotype(stereotypes::node);
}

Model::~Model() = default;

Element& Model::Create(Symbol metaclass, std::size_t properties) {
  auto& made = *new (impl_->elements.Allocate()) Element(*this, metaclass);
  if (properties != 0) made.GrowSlots(std::min<std::size_t>(properties, 8));
  return made;
}

void Model::AddRoot(Element& root) { impl_->roots.push_back(&root); }

std::span<Element* const> Model::Roots() const {
  if (impl_->hasDeleted) {
    std::erase_if(impl_->roots, [](const Element* root) { return root->deleted_ != 0; });
  }
  return impl_->roots;
}

Element& Model::Session() { return *impl_->session; }

Element& Model::Stereotype(Symbol name) {
  if (Element* known = impl_->StereotypeOf(name)) return *known;
  Element& made = Create(metaclasses::stereotype);
  made.SetTextView(properties::name, name.Text());
  made.AddEntity(properties::answersFor, made);
  impl_->profile->AddEntity(properties::ownedMember, made);
  impl_->Make(name).stereotype = &made;
  return made;
}

/// Every stereotype that answers for `special` answers for all that `general` answers for, too.
void Model::Specialise(Element& special, Element& general) {
  const auto inherited = general.Entities(properties::answersFor);
  const std::vector<Element*> generals(inherited.begin(), inherited.end());
  for (Element* stereotype : impl_->profile->Entities(properties::ownedMember)) {
    const auto answers = stereotype->Entities(properties::answersFor);
    std::vector<Element*> extended(answers.begin(), answers.end());
    if (std::find(extended.begin(), extended.end(), &special) == extended.end()) continue;
    for (Element* candidate : generals) {
      const bool known = std::find(extended.begin(), extended.end(), candidate) != extended.end();
      if (!known) extended.push_back(candidate);
    }
    stereotype->SetEntities(properties::answersFor, extended);
  }
}

void Model::SetTagDefault(Element& stereotype, Symbol tag, std::string_view value) {
  Element* defaults = stereotype.Entity(properties::tagDefaults);
  if (defaults == nullptr) {
    defaults = &Create(metaclasses::tagDefaults);
    stereotype.SetEntity(properties::tagDefaults, defaults);
  }
  SetTag(*defaults, tag, value);
}

Element& Model::Apply(Element& subject, Element& stereotype) {
  Element& application = Create(metaclasses::stereotypeInstance, 1);
  application.SetEntity(properties::instanceOf, &stereotype);
  subject.AddEntity(properties::stereotypeInstance, application);
  stereotype.AddEntity(properties::instance, application);
  return application;
}

void Model::SetTag(Element& application, Symbol tag, std::string_view value) {
  if (tag == properties::instanceOf) return;
  Element* tagged = application.Entity(tag);
  if (tagged == nullptr || tagged->Metaclass() != metaclasses::taggedValue) {
    tagged = &Create(metaclasses::taggedValue);
    application.SetEntity(tag, tagged);
  }
  const std::string_view text = Store(value);
  tagged->SetTextView(properties::name, text);
  tagged->SetTextView(properties::valueString, text);
}

void Model::SetListTag(Element& application, Symbol tag, std::span<const std::string_view> values) {
  if (tag == properties::instanceOf) return;
  Element& list = Create(metaclasses::listExpr);
  for (const std::string_view value : values) {
    const std::string_view text = Store(value);
    Element& item = Create(metaclasses::taggedValue);
    for (const Symbol property : {properties::value, properties::name, properties::valueString}) {
      item.SetTextView(property, text);
    }
    list.AddEntity(properties::expression, item);
  }
  application.SetEntity(tag, &list);
}

void Model::AddKeyword(Element& subject, std::string_view keyword) {
  const Symbol symbol(keyword);
  if (subject.HasKeyword(symbol)) return;
  Element* element = impl_->KeywordOf(symbol);
  if (element == nullptr) {
    element = &Create(metaclasses::keyword);
    element->SetTextView(properties::name, symbol.Text());
    impl_->Make(symbol).keyword = element;
  }
  subject.AddEntity(properties::keyword, *element);
}

void Model::SetDefaultText(Symbol property, std::string_view text) {
  auto& defaults = impl_->defaultTexts;
  if (property.Id() >= defaults.size()) defaults.resize(property.Id() + 1);
  defaults[property.Id()] = Store(text);
}

std::string_view Model::Store(std::string_view text) { return impl_->texts.Copy(text); }

void Model::Keep(std::shared_ptr<const void> texts) { impl_->kept.push_back(std::move(texts)); }

mdk::IMdeEntity* Model::FindEntity(const std::string& qualifiedName) {
  const auto roots = Roots();
  std::vector<Element*> tops(roots.begin(), roots.end());
  tops.push_back(impl_->profile);
  return Walk(std::move(tops), qualifiedName);
}

}  // namespace model
