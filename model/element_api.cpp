// What an element answers to the agent.
#include <cstring>
#include <string>
#include <vector>

#include "model/api_error.h"
#include "model/element.h"
#include "model/expression.h"
#include "model/model.h"
#include "model/storage.h"
#include "model/vocabulary.h"

namespace model {

namespace {

/// The property that `GetTarget` prefers to the one asked for.
Symbol TargetOf(Symbol property) {
  static std::vector<Symbol> targets;  // by property; the empty name where not yet known
  if (property.Id() >= targets.size()) targets.resize(property.Id() + 1);
  Symbol& target = targets[property.Id()];
  if (target == Symbol()) target = Symbol("Target:" + std::string(property.Text()));
  return target;
}

/// True when the application is one of the stereotype or of one that specialises it.
bool AnswersFor(const Element& application, const Element& stereotype) {
  const Element* applied = application.Entity(properties::instanceOf);
  if (applied == &stereotype) return true;
  if (applied == nullptr) return false;
  for (const Element* general : applied->Entities(properties::answersFor)) {
    if (general == &stereotype) return true;
  }
  return false;
}

/// The default of a tag that an application leaves out: the stereotype's own or an inherited one.
Element* DefaultOf(const Element& application, Symbol tag) {
  const Element* stereotype = application.Entity(properties::instanceOf);
  for (const Element* general : stereotype->Entities(properties::answersFor)) {
    const Element* defaults = general->Entity(properties::tagDefaults);
    Element* value = defaults == nullptr ? nullptr : defaults->Entity(tag);
    if (value != nullptr) return value;
  }
  return nullptr;
}

void AppendLive(std::span<Element* const> elements, std::list<mdk::IMdeEntity*>& result) {
  for (Element* element : elements) result.push_back(element);
}

}  // namespace

Element* Element::Application(Symbol stereotype) const {
  const auto applications = Entities(properties::stereotypeInstance);
  if (applications.empty()) return nullptr;
  const Element* wanted = model_->impl_->StereotypeOf(stereotype);
  if (wanted == nullptr) return nullptr;
  for (Element* application : applications) {
    if (AnswersFor(*application, *wanted)) return application;
  }
  return nullptr;
}

/// Of several applications the first that has a value of its own answers.
Element* Element::TaggedValue(Symbol stereotype, Symbol tag) const {
  const auto applications = Entities(properties::stereotypeInstance);
  if (applications.empty()) return nullptr;
  const Element* wanted = model_->impl_->StereotypeOf(stereotype);
  if (wanted == nullptr) return nullptr;
  const Element* first = nullptr;
  for (const Element* application : applications) {
    if (!AnswersFor(*application, *wanted)) continue;
    if (Element* value = application->Entity(tag)) return value;
    if (first == nullptr) first = application;
  }
  return first == nullptr ? nullptr : DefaultOf(*first, tag);
}

Element* Element::Marking(Symbol name) const {
  if (Element* application = Application(name)) return application;
  return HasKeyword(name) ? model_->impl_->KeywordOf(name) : nullptr;
}

void Element::QueryInterface(const mdk::InterfaceId& id, void** result) {
  const bool isModel =
      this == model_->impl_->session && std::memcmp(&id, &mdk::IMdeModel::guid, sizeof id) == 0;
  *result = isModel ? static_cast<mdk::IMdeModel*>(model_) : nullptr;
}

std::string Element::GetValue(const std::string& property, int) {
  const auto symbol = Symbol::Find(property);
  if (!symbol) return {};
  const std::string_view own = Text(*symbol);
  return std::string(own.empty() ? model_->impl_->DefaultText(*symbol) : own);
}

mdk::IMdeEntity* Element::GetEntity(const std::string& property, int) {
  const auto symbol = Symbol::Find(property);
  if (!symbol) return nullptr;
  return *symbol == properties::session ? model_->impl_->session : Entity(*symbol);
}

void Element::GetEntities(const std::string& property, std::list<mdk::IMdeEntity*>& result) {
  const auto symbol = Symbol::Find(property);
  if (symbol) AppendLive(Entities(*symbol), result);
}

mdk::IMdeEntity* Element::GetTarget(const std::string& property, int) {
  const auto symbol = Symbol::Find(property);
  if (!symbol) return nullptr;
  Element* target = Entity(TargetOf(*symbol));
  return target == nullptr ? Entity(*symbol) : target;
}

std::string Element::GetMetaclass() { return std::string(metaclass_.Text()); }

void Element::GetReferrers(const std::string& property, std::list<mdk::IMdeEntity*>& result) {
  const auto symbol = Symbol::Find(property);
  if (!symbol) return;
  if (*symbol == properties::instanceOf && Find(properties::answersFor) != nullptr) {
    return AppendLive(Entities(properties::instance), result);
  }
  const Element* last = nullptr;
  for (Element* referrer : model_->impl_->Referrers(*symbol, *this)) {
    if (referrer->deleted_ == 0 && referrer != last) result.push_back(referrer);
    last = referrer;
  }
}

mdk::IMdeEntity* Element::EvalExpression(const std::string& expression, int) {
  const auto applications = Entities(properties::stereotypeInstance);
  if (applications.empty() && Find(properties::keyword) == nullptr) return nullptr;
  const Expression& asked = Expression::Of(expression);
  if (!asked.valid) return nullptr;
  if (asked.tag == Symbol()) return Marking(asked.stereotype);
  return TaggedValue(asked.stereotype, asked.tag);
}

bool Element::IsKindOf(const std::string& metaclass) { return metaclass_.Text() == metaclass; }

void Element::AddEntity(const std::string& property, mdk::DefinitionRef definition, int,
                        mdk::Changer&) {
  if (property != properties::stereotypeInstance.Text()) {
    Fail("AddEntity: nothing can be made in the property \"" + property + "\"");
  }
  if (definition == nullptr) Fail("AddEntity: there is no stereotype to apply");
  auto* stereotype = const_cast<Element*>(static_cast<const Element*>(definition));
  if (stereotype->model_ != model_ || stereotype->deleted_ != 0 ||
      stereotype->Find(properties::answersFor) == nullptr) {
    Fail("AddEntity: the definition is not a stereotype of this model");
  }
  model_->Apply(*this, *stereotype);
}

void Element::SetExpression(const std::string& expression, const std::string& value, int,
                            mdk::Changer&) {
  const Expression& asked = Expression::Of(expression);
  if (!asked.valid || asked.tag == Symbol()) {
    Fail("SetExpression: \"" + expression + "\" names no tagged value");
  }
  Element* application = Application(asked.stereotype);
  if (application == nullptr) {
    Fail("SetExpression: the stereotype " + std::string(asked.stereotype.Text()) +
         " is not applied to \"" + std::string(Text(properties::name)) + "\"");
  }
  model_->SetTag(*application, asked.tag, value);
}

mdk::DefinitionRef Element::GetDefinitionRef() { return this; }

void Element::Delete(mdk::Changer&) {
  if (this == model_->impl_->session || this == model_->impl_->profile) {
    Fail("Delete: the session and the profile belong to the model itself");
  }
  for (Element* application : Entities(properties::stereotypeInstance)) application->deleted_ = 1;
  deleted_ = 1;
  model_->impl_->hasDeleted = true;
}

bool Element::HasStereotype(const std::string& stereotype, int) {
  const auto symbol = Symbol::Find(stereotype);
  return symbol && Marking(*symbol) != nullptr;
}

}  // namespace model
