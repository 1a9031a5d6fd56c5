#include "tree/parameter.h"

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "tree/operation.h"
#include "types/properties.h"

namespace mdktoidl {

Parameter::Parameter(mdk::IMdeEntity* element, Operation& parent) : Node(element, &parent) {
  CreateNodeRef();
  direction = DirectionOf(element->GetValue(properties::direction, 0));
}

Parameter::Direction Parameter::DirectionOf(std::string_view text) {
  if (text == "DkIn" || text == "DkNone") return Direction::in;
  if (text == "DkInOut") return Direction::inOut;
  if (text == "DkOut") return Direction::out;
  return text == "DkReturn" ? Direction::result : Direction::unknown;
}

std::string_view Parameter::Keyword() const {
  switch (direction) {
    case Direction::in:
      return "in ";
    case Direction::inOut:
      return "inout ";
    case Direction::out:
      return "out ";
    default:
      return "";
  }
}

void Parameter::EvaluateTypes(NodeList& deps) {
  // The message about a bound says "attribute" and lacks a blank; it is known so.
  static constexpr TypeComplaints complaints = {
      "parameter ", Message::parameterBoundUnknown, Message::parameterTypeUnknown,
      Message::parameterTypeAnonymous, Message::parameterTypeNotExported};
  const auto& operation = static_cast<const Operation&>(*Scope());
  if (direction != Direction::in && operation.isOneway()) {
    Report(Message::parameterReturnsValue, {operation.ScopedName("::")});
  }
  ResolveType(Entity(), complaints, deps);
}

void Parameter::Unparse(std::ofstream& out) {
  Line line(out);
  Unparse(line);
}

void Parameter::Unparse(Line& line) const {
  Write(line, {Keyword(), TypeText(), " ", Name(), DeclaratorSuffix()});
}

}  // namespace mdktoidl
