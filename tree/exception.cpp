#include "tree/exception.h"

#include "output/layout.h"
#include "tree/field.h"
#include "types/elements.h"
#include "types/marking.h"

namespace mdktoidl {

Exception::Exception(mdk::IMdeEntity* element, Container* parent) : Container(element, parent) {
  CreateNodeRef();
  for (mdk::IMdeEntity* member : Elements(element, "OwnedMember")) {
    if (!member->IsKindOf("Attribute") || !isPublic(member)) continue;
    Adopt(std::make_unique<Field>(member, this));
  }
}

void Exception::Unparse(std::ofstream& out) {
  newline(out);
  UnparseComment(Entity(), out);
  newline(out);
  out << "exception " << Name() << " {";
  indent(out);
  for (const auto& child : children) child->Unparse(out);
  redent(out);
  newline(out);
  out << "};";
}

}  // namespace mdktoidl
