// One element of the in-memory model: a metaclass and its properties, in a few dozen bytes.
//
// A property holds a text, one element or a list of elements. Everything that an element says
// through `mdk::IMdeEntity` is read from these, so whoever fills a model decides what the agent
// sees: "Name", "OwnedMember", "Type" and the rest are ordinary properties. Applied stereotypes are
// the list "StereotypeInstance", keywords the list "Keyword" (see model.h).
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "host/element.h"
#include "model/symbol.h"

namespace model {

class Model;

/// Made and owned by a `Model`; never moves, and lives as long as the model.
class Element final : public mdk::IMdeEntity {
 public:
  Element(const Element&) = delete;
  Element& operator=(const Element&) = delete;

  Symbol Metaclass() const { return metaclass_; }
  void SetMetaclass(Symbol metaclass) { metaclass_ = metaclass; }
  Model& Owner() const { return *model_; }

  /// Sets a text property. The text is copied into the model.
  void SetText(Symbol property, std::string_view text);
  /// Sets a text property without copying: `text` must outlive the model.
  void SetTextView(Symbol property, std::string_view text);
  /// Sets a single-valued property; null unsets it.
  void SetEntity(Symbol property, Element* target);
  /// Replaces a multi-valued property.
  void SetEntities(Symbol property, std::span<Element* const> targets);
  /// Appends to a multi-valued property; amortised constant time.
  void AddEntity(Symbol property, Element& target);

  /// The text of a property; empty when it is unset or holds elements.
  std::string_view Text(Symbol property) const;
  /// The element of a single-valued property; null when it is unset.
  Element* Entity(Symbol property) const;
  /// The elements of a multi-valued property; empty when it is unset. Valid until the property is
  /// changed, or is read after something was deleted.
  std::span<Element* const> Entities(Symbol property) const;

  /// The application of a stereotype of that name, or of one that specialises it; null when none.
  Element* Application(Symbol stereotype) const;
  /// The value of a tag of that stereotype, or its default; null when there is none or the
  /// stereotype isn't applied.
  Element* TaggedValue(Symbol stereotype, Symbol tag) const;
  /// True when the element has the keyword.
  bool HasKeyword(Symbol keyword) const;

  // mdk::IMdeEntity. `flag` arguments are ignored.
  void QueryInterface(const mdk::InterfaceId& id, void** result) override;
  std::string GetValue(const std::string& property, int flag) override;
  mdk::IMdeEntity* GetEntity(const std::string& property, int flag) override;
  void GetEntities(const std::string& property, std::list<mdk::IMdeEntity*>& result) override;
  mdk::IMdeEntity* GetTarget(const std::string& property, int flag) override;
  std::string GetMetaclass() override;
  void GetReferrers(const std::string& property, std::list<mdk::IMdeEntity*>& result) override;
  mdk::IMdeEntity* EvalExpression(const std::string& expression, int flag) override;
  bool IsKindOf(const std::string& metaclass) override;
  void AddEntity(const std::string& property, mdk::DefinitionRef definition, int flag,
                 mdk::Changer& changer) override;
  void SetExpression(const std::string& expression, const std::string& value, int flag,
                     mdk::Changer& changer) override;
  mdk::DefinitionRef GetDefinitionRef() override;
  void Delete(mdk::Changer& changer) override;
  bool HasStereotype(const std::string& stereotype, int flag) override;

 private:
  friend class Model;
  struct Slot;

  Element(Model& model, Symbol metaclass) : model_(&model), metaclass_(metaclass) {}

  Element* Marking(Symbol name) const;
  Slot* Find(Symbol property) const;
  Slot& Make(Symbol property);
  void GrowSlots(std::size_t capacity);
  void Unset(Slot& slot);
  void ReleaseList(Slot& slot) const;
  void GrowList(Slot& slot) const;
  void Purge(Slot& slot) const;

  Model* model_;
  Slot* slots_ = nullptr;
  Symbol metaclass_;
  std::uint32_t slotCount_ : 16 = 0;
  std::uint32_t slotCapacity_ : 15 = 0;
  std::uint32_t deleted_ : 1 = 0;
};

}  // namespace model
