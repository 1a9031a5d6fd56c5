#include "tree/port.h"

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "types/elements.h"
#include "types/marking.h"

namespace mdktoidl {

void Port::EvaluateTypes(NodeList& deps) {
  const PortRules& rules = Rules();
  const std::list<mdk::IMdeEntity*> types = Elements(Entity(), rules.typing);
  if (types.empty()) {
    Report(rules.lacksType, {ScopedName("::")});
  } else {
    if (types.size() > 1) Report(rules.hasTooMany, {Name()});
    type = GetNodeRef(types.front());
    if (type != nullptr) deps.push_back(type);
  }
  if (!Elements(Entity(), rules.forbidden).empty()) {
    Report(rules.hasForbidden, {ScopedName("::")});
  }
}

// The type is always written by its simple name, wherever it is declared; that is deliberate.
void Port::Unparse(std::ofstream& out) {
  if (type == nullptr) return;
  newline(out);
  out << Keywords() << type->Name() << ' ' << Name() << ';';
}

const PortRules& Facet::Rules() const {
  static constexpr PortRules rules = {"Realized", "Required", Message::facetLacksInterface,
                                      Message::facetRequires, Message::portRealizesTooMany};
  return rules;
}

std::string Facet::Keywords() const { return "provides "; }

const PortRules& Receptacle::Rules() const {
  static constexpr PortRules rules = {"Required", "Realized", Message::receptacleLacksInterface,
                                      Message::receptacleRealizes, Message::portRequiresTooMany};
  return rules;
}

bool Receptacle::IsMultiple() const {
  return TaggedLiteral(Entity(), "CORBAReceptacle (. isMultiple .)", "false") == "true";
}

std::string Receptacle::Keywords() const { return IsMultiple() ? "uses multiple " : "uses "; }

const PortRules& EventSource::Rules() const {
  static constexpr PortRules rules = {"Required", "Realized", Message::eventSourceLacksType,
                                      Message::eventSourceRealizes, Message::portRequiresTooMany};
  return rules;
}

bool EventSource::IsEmitter() const {
  return TaggedLiteral(Entity(), "CORBAEventSource (. sourceKind .)", "") == "Emitter";
}

std::string EventSource::Keywords() const { return IsEmitter() ? "emits " : "publishes "; }

const PortRules& EventSink::Rules() const {
  static constexpr PortRules rules = {"Realized", "Required", Message::eventSinkLacksType,
                                      Message::eventSinkRequires, Message::portRealizesTooMany};
  return rules;
}

std::string EventSink::Keywords() const { return "consumes "; }

}  // namespace mdktoidl
