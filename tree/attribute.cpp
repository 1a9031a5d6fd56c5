#include "tree/attribute.h"

#include "output/layout.h"

namespace mdktoidl {

void Attribute::EvaluateTypes(NodeList& deps) {
  static constexpr TypeComplaints complaints = {
      "attribute ", Message::attributeBoundUnknown, Message::attributeTypeUnknown,
      Message::attributeTypeAnonymous, Message::attributeTypeNotExported};
  ResolveType(Entity(), complaints, deps);
}

bool Attribute::isReadOnly() const { return Entity()->GetValue("Changeability", 0) == "CkFrozen"; }

void Attribute::Unparse(std::ofstream& out) {
  UnparseComment(Entity(), out);
  newline(out);
  if (isReadOnly()) out << "readonly ";
  out << "attribute " << TypeText() << ' ' << Name() << DeclaratorSuffix() << ';';
}

}  // namespace mdktoidl
