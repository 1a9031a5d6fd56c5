#include "types/constant_value.h"

#include <unordered_map>
#include <vector>

#include "agent/vocabulary.h"
#include "types/text.h"

namespace mdktoidl {

namespace {

std::unordered_map<mdk::IMdeEntity*, ConstantValue> knownConstants;

/// One step: either the value of the constant itself or the constant that it names.
struct Step {
  ConstantValue value;
  mdk::IMdeEntity* next = nullptr;
};

Step Look(mdk::IMdeEntity* constant) {
  mdk::IMdeEntity* expression = constant->GetEntity(properties::defaultValue, 0);
  if (expression == nullptr) return {};
  if (expression->IsKindOf(metaclasses::ident))
    return {{}, expression->GetEntity(properties::definition, 0)};
  if (!expression->IsKindOf(metaclasses::integerValue)) return {};
  const auto value = IntegerLiteral(expression->GetValue(properties::valueString, 0));
  if (!value) return {};
  return {{ConstantState::integer, *value}, nullptr};
}

}  // namespace

ConstantValue EvaluateConstant(mdk::IMdeEntity* constant, VisitedConstants& visited) {
  std::vector<mdk::IMdeEntity*> way;
  ConstantValue result;
  while (constant != nullptr) {
    const auto known = knownConstants.find(constant);
    if (known != knownConstants.end()) {
      result = known->second;
      break;
    }
    if (!visited.insert(constant).second) {
      result.state = ConstantState::circular;
      break;
    }
    way.push_back(constant);
    const Step step = Look(constant);
    result = step.value;
    constant = step.next;
  }
  for (mdk::IMdeEntity* passed : way) knownConstants[passed] = result;
  return result;
}

void ForgetConstants() { knownConstants.clear(); }

}  // namespace mdktoidl
