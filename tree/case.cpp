#include "tree/case.h"

#include "output/layout.h"
#include "types/elements.h"
#include "types/marking.h"
#include "types/properties.h"
#include "types/text.h"

namespace mdktoidl {

void Case::EvaluateTypes(NodeList& deps) {
  static constexpr TypeComplaints complaints = {
      "union case ", Message::caseBoundUnknown, Message::caseTypeUnknown,
      Message::caseTypeAnonymous, Message::caseTypeNotExported};
  ResolveType(Entity(), complaints, deps);
}

bool Case::isDefault() const {
  static const std::string expression = "'case' (. isDefault .)";
  return TaggedLiteral(Entity(), expression, "false") == "true";
}

std::list<std::string> Case::GivenLabels() const {
  static const std::string expression = "'case' (. label .)";
  std::list<std::string> given;
  mdk::IMdeEntity* value = Entity()->EvalExpression(expression, 0);
  if (value == nullptr) return given;
  if (value->IsKindOf("ListExpr")) {
    for (mdk::IMdeEntity* item : Elements(value, properties::expression)) {
      given.push_back(item->GetValue(properties::value, 0));
    }
  } else {
    given.push_back(value->GetValue(properties::valueString, 0));
  }
  // Tools leave an empty label behind where the user typed none.
  given.remove_if([](const std::string& label) { return TrimEndOfString(label).empty(); });
  return given;
}

void Case::Unparse(std::ofstream& out) {
  UnparseComment(Entity(), out);
  for (const std::string& label : labels) {
    newline(out);
    out << "case " << label << ':';
  }
  if (isDefault()) {
    newline(out);
    out << "default:";
  }
  indent(out);
  newline(out);
  out << TypeText() << ' ' << Name() << DeclaratorSuffix() << ';';
  redent(out);
}

}  // namespace mdktoidl
