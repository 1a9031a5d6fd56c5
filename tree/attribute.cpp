#include "tree/attribute.h"

#include "output/layout.h"
#include "types/properties.h"

namespace mdktoidl {

void Attribute::EvaluateTypes(NodeList& deps) {
  static constexpr TypeComplaints complaints = {
      "attribute ", Message::attributeBoundUnknown, Message::attributeTypeUnknown,
      Message::attributeTypeAnonymous, Message::attributeTypeNotExported};
  ResolveType(Entity(), complaints, deps);
}

bool Attribute::isReadOnly() const {
  return Entity()->GetValue(properties::changeability, 0) == "CkFrozen";
}

void Attribute::Unparse(std::ofstream& out) {
  UnparseComment(Entity(), out);
  Line line(out);
  newline(line);
  const std::string_view keywords = isReadOnly() ? "readonly attribute " : "attribute ";
  Write(line, {keywords, TypeText(), " ", Name(), DeclaratorSuffix(), ";"});
}

}  // namespace mdktoidl
