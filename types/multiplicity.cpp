#include "types/multiplicity.h"

#include <list>

#include "types/constant_value.h"
#include "types/elements.h"
#include "types/text.h"

namespace mdktoidl {

namespace {

Multiplicity Fault(Message message) {
  Multiplicity faulty;
  faulty.fault = message;
  return faulty;
}

Multiplicity Unbounded() {
  Multiplicity unbounded;
  unbounded.isCollection = true;
  return unbounded;
}

/// `excess` is what a number lies above the greatest one allowed.
Multiplicity BoundedBy(long number, long excess) {
  if (number <= excess) return Fault(Message::multiplicityNotUnderstood);
  Multiplicity bounded;
  bounded.isCollection = number - excess > 1;
  if (bounded.isCollection) bounded.bound = std::to_string(number - excess);
  return bounded;
}

Multiplicity ReadNumber(const std::string& text, long excess) {
  const long number = GetLong(text);
  return text == "*" || number == -1 ? Unbounded() : BoundedBy(number, excess);
}

/// The bound by a constant's value; its name is as good where no arithmetic is needed.
Multiplicity ReadValue(mdk::IMdeEntity* constant, long excess) {
  VisitedConstants visited;
  const ConstantValue value = EvaluateConstant(constant, visited);
  if (value.state == ConstantState::circular) return Fault(Message::multiplicityIsCircular);
  if (value.state != ConstantState::integer || value.value <= excess) {
    return Fault(Message::multiplicityNotUnderstood);
  }
  if (excess != 0) return BoundedBy(value.value, excess);
  Multiplicity named;
  named.isCollection = named.isBoundNamed = true;
  return named;
}

Multiplicity ReadConstant(mdk::IMdeEntity* identifier, long excess) {
  mdk::IMdeEntity* constant = identifier->GetEntity(properties::definition, 0);
  Multiplicity result = constant == nullptr ? Unbounded() : ReadValue(constant, excess);
  result.hasConstant = true;
  result.constant = constant;
  return result;
}

bool IsBound(mdk::IMdeEntity* bound) {
  return bound->IsKindOf(metaclasses::integerValue) || bound->IsKindOf(metaclasses::ident);
}

Multiplicity ReadUpper(mdk::IMdeEntity* bound, long excess) {
  if (bound->IsKindOf(metaclasses::integerValue)) {
    return ReadNumber(bound->GetValue(properties::valueString, 0), excess);
  }
  if (bound->IsKindOf(metaclasses::ident)) return ReadConstant(bound, excess);
  return Fault(Message::multiplicityBoundNotAllowed);
}

/// IDL has no lower bounds, so the lower one only has to be there and to be sound.
Multiplicity ReadRange(mdk::IMdeEntity* range) {
  mdk::IMdeEntity* lower = range->GetEntity(properties::lowerBound, 0);
  if (lower == nullptr) return Fault(Message::multiplicityLacksLowerBound);
  if (!IsBound(lower)) return Fault(Message::multiplicityBoundNotAllowed);
  mdk::IMdeEntity* upper = range->GetEntity(properties::upperBound, 0);
  if (upper == nullptr) return Fault(Message::multiplicityLacksUpperBound);
  return ReadUpper(upper, 0);
}

Multiplicity ReadCondition(mdk::IMdeEntity* condition) {
  mdk::IMdeEntity* boundary = condition->GetEntity(properties::boundary, 0);
  if (boundary == nullptr) return Fault(Message::multiplicityNotUnderstood);
  const std::string comparison = condition->GetValue(properties::comparison, 0);
  if (comparison == "<=" || comparison == "==") return ReadUpper(boundary, 0);
  if (comparison == "<") return ReadUpper(boundary, 1);
  if (comparison != ">=" && comparison != ">" && comparison != "!=") {
    return Fault(Message::multiplicityNotUnderstood);
  }
  return IsBound(boundary) ? Unbounded() : Fault(Message::multiplicityBoundNotAllowed);
}

}  // namespace

Multiplicity GetMultiplicity(mdk::IMdeEntity* element) {
  const std::list<mdk::IMdeEntity*> multiplicities = Elements(element, properties::multiplicity);
  if (multiplicities.empty()) return {};
  // A sequence has one bound; a union of ranges has no counterpart.
  if (multiplicities.size() > 1) return Fault(Message::multiplicityNotUnderstood);
  mdk::IMdeEntity* multiplicity = multiplicities.front();
  return multiplicity->IsKindOf(metaclasses::openRange) ? ReadRange(multiplicity)
                                                        : ReadCondition(multiplicity);
}

}  // namespace mdktoidl
