// Components and their ports: what they provide and use, emit, publish and consume.
#pragma once

#include <string>
#include <string_view>

#include "agent/messages.h"
#include "tree/container.h"

namespace mdktoidl {

/// A component of the component model. Its children are the attributes and ports.
class Component : public Container {
 public:
  Component(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{"component",     ScopeKind::open, Inheritance::inherits,
                                  Forward::asType, Language::idl,   5};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  void UnparseForward(Writer& out) const override;
  Meanings Means() const override { return meanings::type | meanings::component; }
  Expectation Expects(UseRole role) const override;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  void CollectGeneralizations();
};

/// How the four kinds of port differ in what they ask of the model.
struct PortRules {
  const std::string& typing;     ///< the property whose first element is the port's type
  const std::string& forbidden;  ///< the property that must be empty
  Message lacksType;
  Message hasForbidden;
  Message hasTooMany;
  Expectation expected;  ///< what its type has to be
};

/// A port of a component. It is left out when its type is no part of the export.
class Port : public Node {
 public:
  static constexpr Construct kind{"port",      ScopeKind::none, Inheritance::inherited,
                                  Forward::no, Language::idl,   25};
  const Construct& Kind() const override { return kind; }
  bool isDeclared() const override { return uses.Has(UseRole::port); }
  Expectation Expects(UseRole) const override { return Rules().expected; }
  void Unparse(Writer& out) const override;

 protected:
  Port(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) { CreateNodeRef(); }

  void ResolveTypes(NodeList& deps) override;

  virtual const PortRules& Rules() const = 0;
  /// The keywords before the type, with a blank behind each.
  virtual std::string_view Keywords() const = 0;
};

class Facet : public Port {
 public:
  Facet(mdk::IMdeEntity* element, Container* parent) : Port(element, parent) {}
  Meanings Means() const override { return meanings::facet; }

 private:
  const PortRules& Rules() const override;
  std::string_view Keywords() const override { return "provides "; }
};

class Receptacle : public Port {
 public:
  Receptacle(mdk::IMdeEntity* element, Container* parent) : Port(element, parent) {}
  bool IsMultiple() const;

 private:
  const PortRules& Rules() const override;
  std::string_view Keywords() const override { return IsMultiple() ? "uses multiple " : "uses "; }
};

class EventSource : public Port {
 public:
  EventSource(mdk::IMdeEntity* element, Container* parent) : Port(element, parent) {}
  /// True for one that emits to a single consumer; others publish.
  bool IsEmitter() const;

 private:
  const PortRules& Rules() const override;
  std::string_view Keywords() const override { return IsEmitter() ? "emits " : "publishes "; }
};

class EventSink : public Port {
 public:
  EventSink(mdk::IMdeEntity* element, Container* parent) : Port(element, parent) {}

 private:
  const PortRules& Rules() const override;
  std::string_view Keywords() const override { return "consumes "; }
};

}  // namespace mdktoidl
