// The ports of a component: what it provides and uses, emits, publishes and consumes.
#pragma once

#include <string>

#include "agent/messages.h"
#include "tree/container.h"

namespace mdktoidl {

/// How the four kinds of port differ in what they ask of the model.
struct PortRules {
  const char* typing;     ///< the property whose first element is the port's type
  const char* forbidden;  ///< the property that must be empty
  Message lacksType;
  Message hasForbidden;
  Message hasTooMany;
};

class Port : public Node {
 public:
  void EvaluateTypes(NodeList& deps) override;
  /// Writes nothing for a port without a type that is part of the export.
  void Unparse(std::ofstream& out) override;

 protected:
  Port(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) { CreateNodeRef(); }

  virtual const PortRules& Rules() const = 0;
  /// The keywords before the type, with a blank behind each.
  virtual std::string Keywords() const = 0;
};

class Facet : public Port {
 public:
  Facet(mdk::IMdeEntity* element, Container* parent) : Port(element, parent) {}

 private:
  const PortRules& Rules() const override;
  std::string Keywords() const override;
};

class Receptacle : public Port {
 public:
  Receptacle(mdk::IMdeEntity* element, Container* parent) : Port(element, parent) {}
  bool IsMultiple() const;

 private:
  const PortRules& Rules() const override;
  std::string Keywords() const override;
};

class EventSource : public Port {
 public:
  EventSource(mdk::IMdeEntity* element, Container* parent) : Port(element, parent) {}
  /// True for one that emits to a single consumer; others publish.
  bool IsEmitter() const;

 private:
  const PortRules& Rules() const override;
  std::string Keywords() const override;
};

class EventSink : public Port {
 public:
  EventSink(mdk::IMdeEntity* element, Container* parent) : Port(element, parent) {}

 private:
  const PortRules& Rules() const override;
  std::string Keywords() const override;
};

}  // namespace mdktoidl
