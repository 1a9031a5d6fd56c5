#include "types/marking.h"

#include "types/properties.h"

namespace mdktoidl {

bool isMarked(mdk::IMdeEntity* element, const Marking& marking) {
  return element->EvalExpression(marking.Expression(), 0) != nullptr;
}

bool isPublic(mdk::IMdeEntity* element) {
  const std::string visibility = element->GetValue(properties::visibility, 0);
  return visibility == "VkPublic" || visibility == "VkNoVisibility";
}

bool isConstant(mdk::IMdeEntity* element) {
  static const std::string expression = "CORBAAttribute (. isConstant .)";
  mdk::IMdeEntity* value = element->EvalExpression(expression, 0);
  return value != nullptr && value->GetValue(properties::name, 0) != "false";
}

std::string TaggedLiteral(mdk::IMdeEntity* element, const std::string& expression,
                          const std::string& absent) {
  mdk::IMdeEntity* value = element->EvalExpression(expression, 0);
  return value == nullptr ? absent : value->GetValue(properties::name, 0);
}

}  // namespace mdktoidl
