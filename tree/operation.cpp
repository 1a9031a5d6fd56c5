#include "tree/operation.h"

#include <algorithm>

#include "agent/diagnostics.h"
#include "options/options.h"
#include "output/layout.h"
#include "output/separated.h"
#include "tree/parameter.h"
#include "types/elements.h"

namespace mdktoidl {

Operation::Operation(mdk::IMdeEntity* element, Container* parent)
    : Container(element, parent),
      finder(element->HasStereotype("CORBAFinder", 0)),
      factory(element->HasStereotype("CORBAFactory", 0) ||
              element->HasStereotype("CORBAValueFactory", 0)) {
  CreateNodeRef();
  for (mdk::IMdeEntity* parameter : Elements(element, "Parameter")) {
    Adopt(std::make_unique<Parameter>(parameter, *this));
    if (parameter->GetValue("Direction", 0) == "DkReturn") returnParameter = children.back().get();
  }
}

bool Operation::isSignal() const { return Entity()->IsKindOf("Signal"); }

bool Operation::isOneway() const {
  static const std::string expression = "CORBAOperation (. overrideIsDefaultAsync .)";
  if (isSignal() || isFinder() || isFactory()) return true;
  mdk::IMdeEntity* isSynchronous = Entity()->EvalExpression(expression, 0);
  if (isSynchronous == nullptr) return options.isOneway();
  return isSynchronous->GetValue("Name", 0) != "true";
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
  const std::list<mdk::IMdeEntity*> exceptions = Elements(Entity(), "RaisedException");
  if (!exceptions.empty() && isOneway()) Report(Message::operationOnewayRaises, {ScopedName("::")});
  for (mdk::IMdeEntity* exception : exceptions) {
    if (Node* node = GetNodeRef(exception)) {
      raises.push_back(node);
    } else {
      Report(Message::operationRaisesUndefined, {ScopedName("::"), exception->GetValue("Name", 0)});
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
  out << Name() << '(';
  UnparseParameters(out);
  out << ')';
  UnparseRaises(out);
  UnparseContext(out);
  out << ';';
}

void Operation::UnparsePrefix(std::ofstream& out) const {
  if (isFinder()) {
    out << "finder ";
  } else if (isFactory()) {
    out << "factory ";
  } else if (isOneway()) {
    out << "oneway void ";
  } else if (returnParameter != nullptr) {
    out << TypeText() << DeclaratorSuffix() << ' ';
  } else {
    out << "void ";
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
  out << " raises (";
  WriteSeparated(raises, out, [&out](const Node* exception) { out << exception->Name(); });
  out << ')';
}

void Operation::UnparseContext(std::ofstream& out) const {
  static const std::string expression = "CORBAOperation (. context .)";
  mdk::IMdeEntity* context = Entity()->EvalExpression(expression, 0);
  if (context == nullptr || !context->IsKindOf("ListExpr")) return;
  const std::list<mdk::IMdeEntity*> expressions = Elements(context, "Expression");
  if (expressions.empty()) return;
  out << " context (";
  WriteSeparated(expressions, out,
                 [&out](mdk::IMdeEntity* each) { out << each->GetValue("Value", 0); });
  out << ')';
}

}  // namespace mdktoidl
