#include "tree/parameter.h"

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "tree/operation.h"
#include "types/properties.h"

namespace mdktoidl {

namespace {

constexpr std::string_view in = "in ";

std::string_view KeywordOf(std::string_view direction) {
  if (direction == "DkIn" || direction == "DkNone") return in;
  if (direction == "DkInOut") return "inout ";
  return direction == "DkOut" ? "out " : "";
}

}  // namespace

Parameter::Parameter(mdk::IMdeEntity* element, Operation& parent)
    : Node(element, &parent), operation(parent) {
  CreateNodeRef();
  const std::string direction = element->GetValue(properties::direction, 0);
  keyword = KeywordOf(direction);
  result = direction == "DkReturn";
}

void Parameter::EvaluateTypes(NodeList& deps) {
  // The message about a bound says "attribute" and lacks a blank; it is known so.
  static constexpr TypeComplaints complaints = {
      "parameter ", Message::parameterBoundUnknown, Message::parameterTypeUnknown,
      Message::parameterTypeAnonymous, Message::parameterTypeNotExported};
  if (keyword != in && operation.isOneway()) {
    Report(Message::parameterReturnsValue, {operation.ScopedName("::")});
  }
  ResolveType(Entity(), complaints, deps);
}

void Parameter::Unparse(std::ofstream& out) {
  Line line(out);
  Unparse(line);
}

void Parameter::Unparse(Line& line) const {
  Write(line, {keyword, TypeText(), " ", Name(), DeclaratorSuffix()});
}

}  // namespace mdktoidl
