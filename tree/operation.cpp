#include "tree/operation.h"

#include <algorithm>

#include "agent/diagnostics.h"
#include "options/options.h"
#include "output/layout.h"
#include "output/separated.h"
#include "tree/parameter.h"
#include "types/elements.h"
#include "types/properties.h"

namespace mdktoidl {

namespace {

// Kept, because every operation of a model is asked for them.
const std::string finderStereotype = "CORBAFinder";
const std::string factoryStereotype = "CORBAFactory";
const std::string valueFactoryStereotype = "CORBAValueFactory";

}  // namespace

Operation::Operation(mdk::IMdeEntity* element, Container* parent)
    : Container(element, parent),
      finder(element->HasStereotype(finderStereotype, 0)),
      factory(element->HasStereotype(factoryStereotype, 0) ||
              element->HasStereotype(valueFactoryStereotype, 0)) {
  CreateNodeRef();
  const std::list<mdk::IMdeEntity*> parameters = Elements(element, properties::parameter);
  children.reserve(parameters.size());
  for (mdk::IMdeEntity* parameter : parameters) {
    auto node = std::make_unique<Parameter>(parameter, *this);
    if (node->isResult()) returnParameter = node.get();
    Adopt(std::move(node));
  }
}

bool Operation::isSignal() const {
  static const std::string metaclass = "Signal";
  return Entity()->IsKindOf(metaclass);
}

bool Operation::isOneway() const {
  if (!oneway) oneway = DetermineOneway();
  return *oneway;
}

bool Operation::DetermineOneway() const {
  static const std::string expression = "CORBAOperation (. overrideIsDefaultAsync .)";
  if (isSignal() || isFinder() || isFactory()) return true;
  mdk::IMdeEntity* isSynchronous = Entity()->EvalExpression(expression, 0);
  if (isSynchronous == nullptr) return options.isOneway();
  return isSynchronous->GetValue(properties::name, 0) != "true";
}

void Operation::EvaluateTypes(NodeList& deps) {
  CheckOwner();
  if (!isSignal()) EvaluateRaises(deps);
  EvaluateReturnType(deps);
  for (const auto& parameter : children) parameter->EvaluateTypes(deps);
}

void Operation::CheckOwner() const {
  if (!isFactory() && !isFinder()) return;
  mdk::IMdeEntity* owner = Scope() == nullptr ? nullptr : Scope()->Entity();
  if (owner == nullptr) return;
  for (const char* creator : {"CORBAHome", "CORBAValue", "CORBAEvent"}) {
    if (owner->HasStereotype(creator, 0)) return;
  }
  Report(Message::operationCannotCreate, {ScopedName("::")});
}

void Operation::EvaluateRaises(NodeList& deps) {
  const std::list<mdk::IMdeEntity*> exceptions = Elements(Entity(), properties::raisedException);
  if (!exceptions.empty() && isOneway()) Report(Message::operationOnewayRaises, {ScopedName("::")});
  raises.reserve(exceptions.size());
  for (mdk::IMdeEntity* exception : exceptions) {
    if (Node* node = GetNodeRef(exception)) {
      raises.push_back(node);
    } else {
      Report(Message::operationRaisesUndefined,
             {ScopedName("::"), exception->GetValue(properties::name, 0)});
    }
  }
  JoinList(raises, deps);
}

void Operation::EvaluateReturnType(NodeList& deps) {
  // The return parameter, which is evaluated with the others, speaks for its bounds.
  static constexpr TypeComplaints complaints = {
      "operation ", std::nullopt, Message::operationTypeUnknown, Message::operationTypeAnonymous,
      Message::operationTypeNotExported};
  if (returnParameter != nullptr) ResolveType(returnParameter->Entity(), complaints, deps);
}

void Operation::Unparse(std::ofstream& out) {
  UnparseComment(Entity(), out);
  Line line(out);
  newline(line);
  UnparsePrefix(line);
  Write(line, {Name(), "("});
  UnparseParameters(line);
  Write(line, {")"});
  UnparseRaises(line);
  UnparseContext(line);
  Write(line, {";"});
}

void Operation::UnparsePrefix(Line& line) const {
  if (isFinder()) {
    Write(line, {"finder "});
  } else if (isFactory()) {
    Write(line, {"factory "});
  } else if (isOneway()) {
    Write(line, {"oneway void "});
  } else if (returnParameter != nullptr) {
    Write(line, {TypeText(), DeclaratorSuffix(), " "});
  } else {
    Write(line, {"void "});
  }
}

void Operation::UnparseParameters(Line& line) const {
  std::string_view separator;
  for (const auto& child : children) {
    if (child.get() == returnParameter) continue;
    Write(line, {separator});
    static_cast<const Parameter&>(*child).Unparse(line);
    separator = ", ";
  }
}

void Operation::UnparseRaises(Line& line) const {
  if (raises.empty()) return;
  Write(line, {" raises ("});
  WriteSeparated(raises, line,
                 [&line](const Node* exception) { Write(line, {exception->Name()}); });
  Write(line, {")"});
}

void Operation::UnparseContext(Line& line) const {
  static const std::string expression = "CORBAOperation (. context .)";
  mdk::IMdeEntity* context = Entity()->EvalExpression(expression, 0);
  if (context == nullptr || !context->IsKindOf("ListExpr")) return;
  const std::list<mdk::IMdeEntity*> expressions = Elements(context, properties::expression);
  if (expressions.empty()) return;
  Write(line, {" context ("});
  WriteSeparated(expressions, line, [&line](mdk::IMdeEntity* each) {
    Write(line, {each->GetValue(properties::value, 0)});
  });
  Write(line, {")"});
}

}  // namespace mdktoidl
