// The host's handle of one model element.
//
// The agent never sees how a model is stored: it asks these questions, and whoever hosts the agent
// answers them. The functions and their order are the interface between two separately built
// programs, so nothing may be added, removed or reordered here.
#pragma once

#include <list>
#include <string>

namespace mdk {

/// Names an interface that an element can be asked for.
struct InterfaceId {
  unsigned char bytes[16];
};

/// Passed to every function that changes the model; opaque to the agent.
class Changer;

/// The handle by which a definition (a stereotype) is named when something is made from it.
/// Opaque, borrowed from the host; null names nothing.
using DefinitionRef = const void*;

/// One model element. Elements are borrowed from the host and stay valid for the whole run: they
/// are never released, counted or copied. A null pointer means that there is no such element.
/// Any function may report a failed call by throwing a `const char*`.
class IMdeEntity {
 public:
  /// Fills `*result` with another interface of the same host object, or with null.
  virtual void QueryInterface(const InterfaceId& id, void** result) = 0;

  /// The text of a single-valued property; empty when it is unset. `flag` is always 0.
  virtual std::string GetValue(const std::string& property, int flag) = 0;

  /// The element that a single-valued property refers to or owns; null when there is none.
  virtual IMdeEntity* GetEntity(const std::string& property, int flag) = 0;

  /// Appends the elements of a multi-valued property to `result`, in the model's order.
  virtual void GetEntities(const std::string& property, std::list<IMdeEntity*>& result) = 0;

  /// The element that an expression-valued property designates ("Type"); null when there is none.
  virtual IMdeEntity* GetTarget(const std::string& property, int flag) = 0;

  /// The name of the element's metaclass.
  virtual std::string GetMetaclass() = 0;

  /// Appends every element whose named property refers to this element.
  virtual void GetReferrers(const std::string& property, std::list<IMdeEntity*>& result) = 0;

  /// Evaluates a tagged-value expression, "Stereotype (. tag .)", or with "(. .)" asks only whether
  /// the stereotype or keyword is applied. Null when it is not applied or the tag has no value.
  virtual IMdeEntity* EvalExpression(const std::string& expression, int flag) = 0;

  /// True when the element is an instance of the metaclass.
  virtual bool IsKindOf(const std::string& metaclass) = 0;

  /// Makes a new element in a multi-valued property as an instance of a definition; used to apply a
  /// stereotype ("StereotypeInstance"). `flag` is always 0.
  virtual void AddEntity(const std::string& property, DefinitionRef definition, int flag,
                         Changer& changer) = 0;

  /// Sets the tagged value that an expression names. `flag` is always 1.
  virtual void SetExpression(const std::string& expression, const std::string& value, int flag,
                             Changer& changer) = 0;

  /// The handle by which this element, a stereotype, is named in `AddEntity`.
  virtual DefinitionRef GetDefinitionRef() = 0;

  /// Removes the element from the model.
  virtual void Delete(Changer& changer) = 0;

  /// True when a stereotype of that name is applied to the element.
  virtual bool HasStereotype(const std::string& stereotype, int flag) = 0;

 protected:
  ~IMdeEntity() = default;
};

}  // namespace mdk
