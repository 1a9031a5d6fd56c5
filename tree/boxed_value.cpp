#include "tree/boxed_value.h"

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "tree/base_attribute.h"

namespace mdktoidl {

BoxedValue::BoxedValue(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) {
  CreateNodeRef();
  attribute =
      BaseAttribute(*this, Message::boxedValueLacksAttribute, Message::boxedValueHasMoreAttributes);
}

void BoxedValue::EvaluateTypes(NodeList& deps) {
  static constexpr TypeComplaints complaints = {"boxed value ", std::nullopt,
                                                Message::boxedValueTypeUnknown, std::nullopt,
                                                Message::boxedValueTypeNotExported};
  if (attribute == nullptr) return;
  if (hasMultiplicity(attribute)) Report(Message::boxedValueHasMultiplicity, {ScopedName("::")});
  ResolveType(attribute, complaints, deps);
  if (!DeclaratorSuffix().empty()) Report(Message::boxedValueTypeIsArray, {ScopedName("::")});
}

void BoxedValue::Unparse(std::ofstream& out) {
  UnparseComment(Entity(), out);
  newline(out);
  out << "valuetype " << Name() << ' ' << TypeText() << ';';
}

}  // namespace mdktoidl
