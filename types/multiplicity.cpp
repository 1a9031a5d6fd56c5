#include "types/multiplicity.h"

#include <list>

#include "agent/diagnostics.h"
#include "types/constant_value.h"
#include "types/elements.h"
#include "types/properties.h"
#include "types/text.h"

namespace mdktoidl {

namespace {

const std::string single;
const std::string unlimited = "*";

/// Reads the multiplicity of one element; reports for its user.
class MultiplicityReader {
 public:
  MultiplicityReader(const TypeUser& user, bool& bounded, std::vector<mdk::IMdeEntity*>& entities)
      : user_(user), bounded_(bounded), entities_(entities) {}

  std::string Read(mdk::IMdeEntity* multiplicity) {
    if (multiplicity->IsKindOf("OpenRange")) return ReadRange(multiplicity);
    return ReadBoundary(multiplicity);
  }

  std::string Fail(Message message) {
    Report(message, {user_.Describe()});
    return single;
  }

 private:
  /// IDL has no lower bounds, so the lower one only has to be there and to be sound.
  std::string ReadRange(mdk::IMdeEntity* range) {
    mdk::IMdeEntity* lower = range->GetEntity(properties::lowerBound, 0);
    if (lower == nullptr) return Fail(Message::multiplicityLacksLowerBound);
    if (!IsBound(lower)) return Fail(Message::multiplicityBoundNotAllowed);
    mdk::IMdeEntity* upper = range->GetEntity(properties::upperBound, 0);
    if (upper == nullptr) return Fail(Message::multiplicityLacksUpperBound);
    return ReadUpper(upper, 0);
  }

  std::string ReadBoundary(mdk::IMdeEntity* condition) {
    mdk::IMdeEntity* boundary = condition->GetEntity(properties::boundary, 0);
    if (boundary == nullptr) return Fail(Message::multiplicityNotUnderstood);
    const std::string relation = condition->GetValue(properties::comparison, 0);
    if (relation == "<=" || relation == "==") return ReadUpper(boundary, 0);
    if (relation == "<") return ReadUpper(boundary, 1);
    if (relation != ">=" && relation != ">" && relation != "!=") {
      return Fail(Message::multiplicityNotUnderstood);
    }
    return IsBound(boundary) ? unlimited : Fail(Message::multiplicityBoundNotAllowed);
  }

  static bool IsBound(mdk::IMdeEntity* bound) {
    return bound->IsKindOf("IntegerValue") || bound->IsKindOf("Ident");
  }

  /// `excess` is what the bound lies above the greatest number allowed.
  std::string ReadUpper(mdk::IMdeEntity* bound, long excess) {
    if (bound->IsKindOf("IntegerValue"))
      return ReadNumber(bound->GetValue(properties::valueString, 0), excess);
    if (bound->IsKindOf("Ident")) return ReadConstant(bound, excess);
    return Fail(Message::multiplicityBoundNotAllowed);
  }

  std::string ReadNumber(const std::string& text, long excess) {
    const long number = GetLong(text);
    if (text == unlimited || number == -1) return unlimited;
    return Limit(number, excess);
  }

  std::string Limit(long number, long excess) {
    if (number <= excess) return Fail(Message::multiplicityNotUnderstood);
    if (number - excess == 1) return single;
    bounded_ = true;
    return std::to_string(number - excess);
  }

  std::string ReadConstant(mdk::IMdeEntity* identifier, long excess) {
    mdk::IMdeEntity* constant = identifier->GetEntity(properties::definition, 0);
    bounded_ = true;
    entities_.push_back(constant);
    if (constant == nullptr) return identifier->GetValue(properties::name, 0);
    VisitedConstants visited;
    const ConstantValue value = EvaluateConstant(constant, visited);
    if (value.state == ConstantState::circular) return Fail(Message::multiplicityIsCircular);
    if (value.state != ConstantState::integer || value.value <= excess) {
      return Fail(Message::multiplicityNotUnderstood);
    }
    return excess == 0 ? user_.Spell(constant) : Limit(value.value, excess);
  }

  const TypeUser& user_;
  bool& bounded_;
  std::vector<mdk::IMdeEntity*>& entities_;
};

}  // namespace

std::string GetMultiplicity(mdk::IMdeEntity* element, const TypeUser& user, bool& bounded,
                            std::vector<mdk::IMdeEntity*>& entities) {
  bounded = false;
  const std::list<mdk::IMdeEntity*> multiplicities = Elements(element, properties::multiplicity);
  if (multiplicities.empty()) return single;
  MultiplicityReader reader(user, bounded, entities);
  // A sequence has one bound; a union of ranges has no counterpart.
  if (multiplicities.size() > 1) return reader.Fail(Message::multiplicityNotUnderstood);
  return reader.Read(multiplicities.front());
}

}  // namespace mdktoidl
