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
  newline(out);
  UnparsePrefix(out);
  Write(out, {Name(), "("});
  UnparseParameters(out);
  Write(out, {")"});
  UnparseRaises(out);
  UnparseContext(out);
  Write(out, {";"});
}

void Operation::UnparsePrefix(std::ofstream& out) const {
  if (isFinder()) {
    Write(out, {"finder "});
  } else if (isFactory()) {
    Write(out, {"factory "});
  } else if (isOneway()) {
    Write(out, {"oneway void "});
  } else if (returnParameter != nullptr) {
    Write(out, {TypeText(), DeclaratorSuffix(), " "});
  } else {
    Write(out, {"void "});
  }
}

void Operation::UnparseParameters(std::ofstream& out) const {
  NodeList written;
  for (const auto& parameter : children) {
    if (parameter.get() != returnParameter) written.push_back(parameter.get());
  }
  WriteSeparated(written, out, [&out](Node* parameter) { parameter->Unparse(out); });
}

void Operation::UnparseRaises(std::ofstream& out) const {
  if (raises.empty()) return;
  Write(out, {" raises ("});
  WriteSeparated(raises, out, [&out](const Node* exception) { Write(out, {exception->Name()}); });
  Write(out, {")"});
}

void Operation::UnparseContext(std::ofstream& out) const {
  static const std::string expression = "CORBAOperation (. context .)";
  mdk::IMdeEntity* context = Entity()->EvalExpression(expression, 0);
  if (context == nullptr || !context->IsKindOf("ListExpr")) return;
  const std::list<mdk::IMdeEntity*> expressions = Elements(context, properties::expression);
  if (expressions.empty()) return;
  out << " context (";
  WriteSeparated(expressions, out,
                 [&out](mdk::IMdeEntity* each) { out << each->GetValue(properties::value, 0); });
  out << ')';
}

}  // namespace mdktoidl
