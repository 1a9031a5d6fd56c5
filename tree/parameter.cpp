#include "tree/parameter.h"

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "tree/operation.h"

namespace mdktoidl {

Parameter::Parameter(mdk::IMdeEntity* element, Operation& parent)
    : Node(element, &parent), operation(parent) {
  CreateNodeRef();
}

void Parameter::EvaluateTypes(NodeList& deps) {
  // The message about a bound says "attribute" and lacks a blank; it is known so.
  static constexpr TypeComplaints complaints = {
      "parameter ", Message::parameterBoundUnknown, Message::parameterTypeUnknown,
      Message::parameterTypeAnonymous, Message::parameterTypeNotExported};
  const std::string direction = Entity()->GetValue("Direction", 0);
  if (direction != "DkIn" && direction != "DkNone" && operation.isOneway()) {
    Report(Message::parameterReturnsValue, {operation.ScopedName("::")});
  }
  ResolveType(Entity(), complaints, deps);
}

void Parameter::Unparse(std::ofstream& out) {
  const std::string direction = Entity()->GetValue("Direction", 0);
  if (direction == "DkIn" || direction == "DkNone") {
    out << "in ";
  } else if (direction == "DkInOut") {
    out << "inout ";
  } else if (direction == "DkOut") {
    out << "out ";
  }
  out << TypeText() << ' ' << Name() << DeclaratorSuffix();
}

}  // namespace mdktoidl
