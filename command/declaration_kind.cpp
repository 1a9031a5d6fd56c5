#include "command/declaration_kind.h"

#include <span>
#include <vector>

#include "command/model_words.h"

namespace command {
namespace {

using model::Element;
using model::Symbol;
using Kind = DeclarationKind;

/// One line of a table: the first that fits an element decides.
struct Rule {
  Symbol metaclass;
  Symbol marking;
  Kind kind;
};

const std::vector<Rule>& ModuleRules() {
  static const std::vector<Rule> rules = {
      {words::classMetaclass, words::corbaInterface, Kind::kInterface},
      {words::classMetaclass, words::corbaStruct, Kind::kStruct},
      {words::classMetaclass, words::corbaUnion, Kind::kUnion},
      {words::classMetaclass, words::corbaException, Kind::kException},
      {words::classMetaclass, words::corbaTypedef, Kind::kTypedef},
      {words::classMetaclass, words::corbaBoxedValue, Kind::kBoxedValue},
      {words::classMetaclass, words::corbaSequence, Kind::kSequence},
      {words::classMetaclass, words::corbaComponent, Kind::kComponent},
      {words::classMetaclass, words::corbaComponentImpl, Kind::kComposition},
      {words::dataType, words::corbaEnum, Kind::kEnum},
      {words::dataType, words::corbaTypedef, Kind::kTypedef},
      {words::interface, words::corbaInterface, Kind::kInterface},
      {words::interface, words::corbaHome, Kind::kHome},
      {words::interface, words::corbaEvent, Kind::kEvent},
      {words::interface, words::corbaValue, Kind::kValue},
      {words::interface, words::corbaTypedef, Kind::kTypedef},
      {words::package, words::corbaModule, Kind::kModule},
      {words::syntype, words::corbaTypedef, Kind::kTypedef},
      {words::syntype, words::corbaBoxedValue, Kind::kBoxedValue},
  };
  return rules;
}

/// What interfaces, value types and homes may hold besides attributes and operations.
const std::vector<Rule>& NestedRules() {
  static const std::vector<Rule> rules = {
      {words::dataType, words::corbaEnum, Kind::kEnum},
      {words::classMetaclass, words::corbaStruct, Kind::kStruct},
      {words::classMetaclass, words::corbaUnion, Kind::kUnion},
      {words::classMetaclass, words::corbaException, Kind::kException},
      {words::classMetaclass, words::corbaTypedef, Kind::kTypedef},
      {words::classMetaclass, words::corbaSequence, Kind::kSequence},
      {words::syntype, words::corbaTypedef, Kind::kTypedef},
      {words::syntype, words::corbaBoxedValue, Kind::kBoxedValue},
  };
  return rules;
}

const std::vector<Rule>& CompositionRules() {
  static const std::vector<Rule> rules = {
      {words::classMetaclass, words::corbaHomeImpl, Kind::kHomeExecutor},
      {words::classMetaclass, words::corbaSegment, Kind::kSegment},
  };
  return rules;
}

std::optional<Kind> Apply(std::span<const Rule> rules, const Element& element) {
  for (const Rule& rule : rules) {
    if (rule.metaclass == element.Metaclass() && IsMarked(element, rule.marking)) return rule.kind;
  }
  return std::nullopt;
}

bool IsPublic(const Element& element) {
  const std::string_view visibility = element.Text(words::visibility);
  return visibility.empty() || visibility == "VkPublic" || visibility == "VkNoVisibility";
}

bool IsConstant(Element& element) {
  static const std::string expression = "CORBAAttribute (. isConstant .)";
  mdk::IMdeEntity* value = element.EvalExpression(expression, 0);
  return value != nullptr && value->GetValue("Name", 0) != "false";
}

bool IsCreator(const Element& operation) {
  return IsMarked(operation, words::corbaFactory) || IsMarked(operation, words::corbaFinder) ||
         IsMarked(operation, words::corbaValueFactory);
}

std::optional<Kind> KindOfAttribute(Kind owner, Element& attribute) {
  switch (owner) {
    case Kind::kUnion:
      return IsMarked(attribute, words::unionCase) ? std::optional(Kind::kCase) : std::nullopt;
    case Kind::kValue:
    case Kind::kEvent:
      if (!IsPublic(attribute) || !IsMarked(attribute, words::corbaAttribute)) return Kind::kState;
      break;
    default:
      if (!IsPublic(attribute)) return std::nullopt;
  }
  const bool isField = owner == Kind::kStruct || owner == Kind::kException;
  if (isField) return Kind::kField;
  if (owner == Kind::kComponent) return Kind::kAttribute;
  if (IsConstant(attribute)) return Kind::kConstant;
  return owner == Kind::kModule ? std::nullopt : std::optional(Kind::kAttribute);
}

std::optional<Kind> KindInInterface(const Element& member) {
  const bool isOperation =
      member.Metaclass() == words::operation || member.Metaclass() == words::signal;
  if (!isOperation) return Apply(NestedRules(), member);
  if (!IsPublic(member)) return std::nullopt;
  return IsCreator(member) ? Kind::kFactory : Kind::kOperation;
}

/// A port without a type is not written, whatever it is marked as.
std::optional<Kind> KindInComponent(const Element& member) {
  if (member.Metaclass() != words::port) return std::nullopt;
  const auto typing = TypingOf(member);
  const bool isTyped = typing && !member.Entities(*typing).empty();
  return isTyped ? std::optional(Kind::kPort) : std::nullopt;
}

}  // namespace

std::string_view WordFor(DeclarationKind kind) {
  constexpr std::string_view wordsByKind[] = {
      "module",      "interface",     "value type", "event type",  "home",         "component",
      "composition", "home executor", "segment",    "struct",      "union",        "exception",
      "enum",        "typedef",       "sequence",   "boxed value", "constant",     "attribute",
      "operation",   "factory",       "parameter",  "field",       "state member", "case",
      "enumerator",  "port"};
  return wordsByKind[static_cast<std::size_t>(kind)];
}

bool IsMarked(const Element& element, Symbol name) {
  return element.Application(name) != nullptr || element.HasKeyword(name);
}

std::optional<Kind> KindOfMember(Kind owner, Element& member) {
  if (owner == Kind::kEnum) return Kind::kEnumerator;
  if (owner == Kind::kOperation || owner == Kind::kFactory) {
    if (member.Text(words::direction) == "DkReturn") return std::nullopt;
    return Kind::kParameter;
  }
  if (owner == Kind::kComposition) return Apply(CompositionRules(), member);
  if (member.Metaclass() == words::attribute) return KindOfAttribute(owner, member);
  if (owner == Kind::kModule) return Apply(ModuleRules(), member);
  if (owner == Kind::kComponent) return KindInComponent(member);
  return InheritsMembers(owner) ? KindInInterface(member) : std::nullopt;
}

std::optional<Kind> KindAtTop(const Element& supplier) {
  const Symbol metaclass = supplier.Metaclass();
  if (metaclass == words::package) {
    return IsMarked(supplier, words::corbaModule) ? std::optional(Kind::kModule) : std::nullopt;
  }
  const bool mayBeInterface = metaclass == words::classMetaclass || metaclass == words::interface;
  const bool isInterface = mayBeInterface && IsMarked(supplier, words::corbaInterface);
  return isInterface ? std::optional(Kind::kInterface) : std::nullopt;
}

std::optional<Symbol> TypingOf(const Element& port) {
  if (IsMarked(port, words::corbaFacet)) return words::realized;
  if (IsMarked(port, words::corbaReceptacle)) return words::required;
  if (IsMarked(port, words::corbaEventSource)) return words::required;
  if (IsMarked(port, words::corbaEventSink)) return words::realized;
  return std::nullopt;
}

Symbol MembersOf(Kind kind) {
  if (kind == Kind::kEnum) return words::literal;
  if (kind == Kind::kOperation || kind == Kind::kFactory) return words::parameter;
  return words::ownedMember;
}

}  // namespace command
