// The in-memory model: owns its elements, applies stereotypes, finds elements by qualified name.
//
// It answers the same questions as a modelling tool does, over storage meant for millions of
// elements: elements and their lists lie in an arena that is freed as a whole. It knows nothing of
// files (see xmi/) and nothing of IDL; what an element is asked for is what was put into it.
//
//   Stereotypes   An application is an element of metaclass "StereotypeInstance" in the list
//                 "StereotypeInstance" of its subject; its "InstanceOf" is the stereotype. Its
//                 other properties are its tags, each an element that answers the tagged value's
//                 text to "Name" and to "ValueString". An application of a stereotype counts as one
//                 of each stereotype that it specialises.
//   Keywords      The list "Keyword" holds one shared element for each keyword text. A keyword
//                 answers marking expressions and `HasStereotype` like a stereotype of its name.
//   Defaults      A stereotype knows its tags' default values; `Apply` does not copy them: a tag
//                 that an application leaves out answers the default, if there is one.
//   Targets       `GetTarget(p)` answers the property "Target:" + p, and p where that is unset. So
//                 "Target:Type" holds the type expression (an "Ident" or a "TemplateInstantiation")
//                 and "Type" the classifier that an "Ident" designates.
//   Referrers     `GetReferrers(p)` answers in creation order, from an index that is built from a
//                 pass over the model and again after property p was changed. The "InstanceOf" of
//                 a stereotype is kept at hand instead.
//   Deletion      A deleted element stays in memory, but the model forgets it: properties that
//                 refer to it answer null, and lists leave it out. Its stereotype applications are
//                 deleted with it, what it owns is not. The session can't be deleted.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "host/model.h"
#include "host/model_access.h"
#include "model/element.h"
#include "model/symbol.h"

namespace model {

class Model final : public mdk::IMdeModel {
 public:
  Model();
  ~Model();
  Model(const Model&) = delete;
  Model& operator=(const Model&) = delete;

  /// A new element without properties, with room for so many, at most 8. The model owns it.
  Element& Create(Symbol metaclass, std::size_t properties = 0);

  /// Makes an element one of the roots, where qualified names begin.
  void AddRoot(Element& root);
  std::span<Element* const> Roots() const;

  /// The element that every element answers to "Session".
  Element& Session();

  /// The stereotype of that name, made in the package "CORBA" when it is new. That package and its
  /// stereotypes "CORBA" and "Node" are there from the start; it is none of the roots.
  Element& Stereotype(Symbol name);
  Element& Stereotype(std::string_view name) { return Stereotype(Symbol(name)); }
  /// Declares that `special` specialises `general`: its applications answer for both.
  void Specialise(Element& special, Element& general);
  /// The value of a tag where an application leaves it out.
  void SetTagDefault(Element& stereotype, Symbol tag, std::string_view value);

  /// Applies a stereotype; returns the application.
  Element& Apply(Element& subject, Element& stereotype);
  /// Sets a tag of an application to a single text. A tag named "InstanceOf" is passed over.
  void SetTag(Element& application, Symbol tag, std::string_view value);
  /// Sets a tag of an application to a list of texts: a "ListExpr" whose "Expression" elements
  /// answer "Value".
  void SetListTag(Element& application, Symbol tag, std::span<const std::string_view> values);

  void AddKeyword(Element& subject, std::string_view keyword);

  /// The text that every element whose own is unset answers to the agent.
  void SetDefaultText(Symbol property, std::string_view text);

  /// Copies a text into the model; the view stays valid as long as the model.
  std::string_view Store(std::string_view text);
  /// Keeps something alive as long as the model: what views given to `SetTextView` point into.
  void Keep(std::shared_ptr<const void> texts);

  // mdk::IMdeModel
  mdk::IMdeEntity* FindEntity(const std::string& qualifiedName) override;

 private:
  friend class Element;
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

/// Where `PrintMessage` of the process's one model access object sends its texts. An empty function
/// makes `mdk::GetModelAccess` answer null.
void SetMessageSink(std::function<void(const std::string&)> sink);

}  // namespace model
