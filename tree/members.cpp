#include "tree/members.h"

#include <algorithm>
#include <list>
#include <utility>

#include "options/options.h"
#include "types/elements.h"
#include "types/identifier.h"
#include "types/one_line.h"
#include "types/text.h"

namespace mdktoidl {

namespace {

// Fields and state members are called attributes, too; all of them are known so.
constexpr TypeDiagnostics AttributeDiagnostics(Message anonymous) {
  return {"attribute ", Message::attributeBoundUnknown, Message::attributeTypeUnknown, anonymous,
          Message::attributeTypeNotExported};
}

}  // namespace

void Attribute::ResolveTypes(NodeList&) {
  ResolveType(Entity(), AttributeDiagnostics(Message::attributeTypeAnonymous), type);
}

void Attribute::ResolveMemberType() {
  ResolveType(Entity(), AttributeDiagnostics(Message::memberTypeAnonymous), type);
}

void State::ResolveTypes(NodeList&) { ResolveMemberType(); }

bool Attribute::isReadOnly() const {
  return Entity()->GetValue(properties::changeability, 0) == values::frozen;
}

void Attribute::Unparse(Writer& out) const {
  UnparseComment(Entity(), out);
  newline(out);
  if (isReadOnly()) out << "readonly ";
  out << "attribute " << type << ' ' << Written() << type.DeclaratorSuffix() << ';';
}

void State::Repair(const ConstantNames&) {
  if (type.DeclaratorSuffix().empty()) return;
  showsSize = true;
  Report(Message::stateSizeAdded, {ScopedName("::"), type.DeclaratorSuffix()});
}

// The plain form deliberately lacks the declarator suffix, unlike those of attributes and fields:
// files in use do.
void State::Unparse(Writer& out) const {
  UnparseComment(Entity(), out);
  newline(out);
  out << (isPublic(Entity()) ? "public " : "private ") << type << ' ' << Written();
  if (showsSize) out << type.DeclaratorSuffix();
  out << ';';
}

Operation::Operation(mdk::IMdeEntity* element, Container* parent)
    : Container(element, parent),
      finder(hasStereotype(element, stereotypes::corbaFinder)),
      factory(hasStereotype(element, stereotypes::corbaFactory) ||
              hasStereotype(element, stereotypes::corbaValueFactory)) {
  CreateNodeRef();
  const std::list<mdk::IMdeEntity*> parameters = Elements(element, properties::parameter);
  children.reserve(parameters.size());
  for (mdk::IMdeEntity* parameter : parameters) {
    auto node = MakeNode<Parameter>(parameter, *this);
    if (node->isResult()) returnParameter = node.get();
    Adopt(std::move(node));
  }
}

bool Operation::isSignal() const { return Entity()->IsKindOf(metaclasses::signal); }

bool Operation::isOneway() const {
  if (!oneway) oneway = DetermineOneway();
  return *oneway;
}

// The tag's name promises more than it holds: it tells whether an operation is two-way, and decides
// against the default in either direction.
bool Operation::DetermineOneway() const {
  if (isSignal() || isFinder() || isFactory()) return true;
  mdk::IMdeEntity* isTwoWay =
      Entity()->EvalExpression(tags::overrideIsDefaultAsync.Expression(), 0);
  if (isTwoWay == nullptr) return options.isOneway();
  return isTwoWay->GetValue(properties::name, 0) != "true";
}

void Operation::ResolveTypes(NodeList& deps) {
  CheckOwner();
  if (!isSignal()) ResolveRaises();
  TypeReference result;
  if (returnParameter != nullptr) ResolveResult(result);
  for (const auto& parameter : children) {
    if (parameter.get() == returnParameter) {
      returnParameter->ReportResult(result);
    } else {
      parameter->EvaluateTypes(deps);
    }
  }
  UseType(std::move(result), type);
  PlaceUses();
}

void Operation::PlaceUses() {
  for (Use& use : uses) use.isBeforeName = use.role != UseRole::raises;
  ResolveContext();
}

bool Operation::writesResult() const {
  return returnParameter != nullptr && !isFinder() && !isFactory() && !isOneway();
}

void Operation::NameType(Node& definition) {
  WriteTypeAs(definition, type);
  PlaceUses();
}

void Operation::CheckOwner() const {
  if (!isFactory() && !isFinder()) return;
  mdk::IMdeEntity* owner = Scope() == nullptr ? nullptr : Scope()->Entity();
  if (owner == nullptr) return;
  for (const Stereotype* creator :
       {&stereotypes::corbaHome, &stereotypes::corbaValue, &stereotypes::corbaEvent}) {
    if (hasStereotype(owner, *creator)) return;
  }
  Report(Message::operationCannotCreate);
}

// An exception is deliberately named without its scope, wherever it is declared: files in use are
// written so. Where that name means nothing, the checks of names say so.
void Operation::ResolveRaises() {
  const std::list<mdk::IMdeEntity*> exceptions = Elements(Entity(), properties::raisedException);
  if (!exceptions.empty() && isOneway()) Report(Message::operationOnewayRaises);
  for (mdk::IMdeEntity* exception : exceptions) {
    if (Node* node = GetNodeRef(exception)) {
      AddUse(*node, UseRole::raises, Spelling::simple);
    } else {
      Report(Message::operationRaisesUndefined,
             {ScopedName("::"), exception->GetValue(properties::name, 0)});
    }
  }
}

void Operation::ResolveResult(TypeReference& result) const {
  // The return parameter speaks for its bounds.
  static constexpr TypeDiagnostics diagnostics = {
      "operation ", std::nullopt, Message::operationTypeUnknown, Message::operationTypeAnonymous,
      Message::operationTypeNotExported};
  LookUpType(returnParameter->Entity(), diagnostics.word, result);
  ReportType(result, diagnostics);
}

void Operation::Unparse(Writer& out) const {
  UnparseComment(Entity(), out);
  newline(out);
  UnparsePrefix(out);
  out << Written() << '(';
  UnparseParameters(out);
  out << ')';
  if (uses.Has(UseRole::raises)) {
    out << " raises (";
    uses.Write(UseRole::raises, out);
    out << ')';
  }
  UnparseContext(out);
  out << ';';
}

void Operation::UnparsePrefix(Writer& out) const {
  if (isFinder()) {
    out << "finder ";
  } else if (isFactory()) {
    out << "factory ";
  } else if (isOneway()) {
    out << "oneway void ";
  } else if (writesResult()) {
    out << type << type.DeclaratorSuffix() << ' ';
  } else {
    out << "void ";
  }
}

void Operation::UnparseParameters(Writer& out) const {
  std::string_view separator;
  for (const auto& child : children) {
    if (child.get() == returnParameter) continue;
    out << separator;
    child->Unparse(out);
    separator = ", ";
  }
}

void Operation::ResolveContext() {
  mdk::IMdeEntity* list = Entity()->EvalExpression(tags::context.Expression(), 0);
  if (list == nullptr || !list->IsKindOf(metaclasses::listExpression)) return;
  const std::list<mdk::IMdeEntity*> expressions = Elements(list, properties::expression);
  if (expressions.empty()) return;
  context = std::make_unique<ContextStrings>();
  for (mdk::IMdeEntity* each : expressions) {
    context->push_back(each->GetValue(properties::value, 0));
  }
}

namespace {

// Letters, digits, underscores and points, behind a letter, and maybe an asterisk at the end.
bool isContextName(std::string_view text) {
  if (text.ends_with('*')) text.remove_suffix(1);
  std::string name(text);
  std::ranges::replace(name, '.', '_');
  return !text.starts_with('_') && IsIdentifier(name);
}

bool isContextString(std::string_view text) {
  text = TrimEndOfString(text);
  return text.size() > 2 && text.front() == '"' && text.back() == '"' &&
         isContextName(text.substr(1, text.size() - 2));
}

}  // namespace

void Operation::Repair(const ConstantNames&) {
  if (context == nullptr) return;
  const ContextStrings given = *context;
  std::erase_if(*context, [](const std::string& text) { return TrimEndOfString(text).empty(); });
  for (std::string& text : *context) {
    if (isContextName(text)) text = '"' + text + '"';
  }
  if (*context != given) Report(Message::contextRepaired);
  if (context->empty()) context = nullptr;
}

void Operation::CheckLegality(const ConstantNames&) const {
  if (isFinder() && Enclosing()->AsValue() != nullptr) {
    Report(Message::finderInValue, {ScopedName("::"), Enclosing()->Described()});
  }
  if (context == nullptr) return;
  for (const std::string& text : *context) {
    if (!isContextString(text)) {
      Report(Message::contextIllegal, {ScopedName("::"), OneLine(text)});
    }
  }
}

void Operation::UnparseContext(Writer& out) const {
  if (context == nullptr) return;
  out << " context (";
  std::string_view separator;
  for (const std::string& each : *context) {
    out << separator << each;
    separator = ", ";
  }
  out << ')';
}

Parameter::Parameter(mdk::IMdeEntity* element, Operation& parent) : Node(element, &parent) {
  CreateNodeRef();
  direction = DirectionOf(element->GetValue(properties::direction, 0));
}

Parameter::Direction Parameter::DirectionOf(std::string_view text) {
  if (text == values::in || text == values::noDirection) return Direction::in;
  if (text == values::inOut) return Direction::inOut;
  if (text == values::out) return Direction::out;
  return text == values::result ? Direction::result : Direction::unknown;
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

namespace {

// The message about a bound says "attribute" and lacks a blank; it is known so.
constexpr TypeDiagnostics parameterDiagnostics = {
    "parameter ", Message::parameterBoundUnknown, Message::parameterTypeUnknown,
    Message::parameterTypeAnonymous, Message::parameterTypeNotExported};

}  // namespace

bool Parameter::isDeclared() const {
  return static_cast<const Operation&>(*Scope()).Result() != this;
}

void Parameter::CheckLegality(const ConstantNames&) const {
  if (isDeclared() && Keyword().empty()) Report(Message::parameterLacksDirection);
}

void Parameter::CheckDirection() const {
  const auto& operation = static_cast<const Operation&>(*Scope());
  if (direction != Direction::in && operation.isOneway()) {
    operation.Report(Message::parameterReturnsValue);
  }
}

void Parameter::ResolveTypes(NodeList&) {
  CheckDirection();
  ResolveType(Entity(), parameterDiagnostics, type);
}

void Parameter::ReportResult(const TypeReference& reference) const {
  CheckDirection();
  ReportMultiplicity(reference.multiplicity, parameterDiagnostics.word);
  ReportArray(reference, parameterDiagnostics.word);
  ReportType(reference, parameterDiagnostics);
}

void Parameter::Unparse(Writer& out) const {
  out << Keyword() << type << ' ' << Written() << type.DeclaratorSuffix();
}

}  // namespace mdktoidl
