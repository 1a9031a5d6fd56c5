#include "tree/exception.h"

#include "tree/field.h"
#include "types/elements.h"
#include "types/marking.h"
#include "types/properties.h"

namespace mdktoidl {

Exception::Exception(mdk::IMdeEntity* element, Container* parent) : Container(element, parent) {
  CreateNodeRef();
  for (mdk::IMdeEntity* member : Elements(element, properties::ownedMember)) {
    if (!member->IsKindOf("Attribute") || !isPublic(member)) continue;
    Adopt(std::make_unique<Field>(member, this));
  }
}

void Exception::Unparse(std::ofstream& out) {
  UnparseHeading(out);
  out << "exception " << Name();
  UnparseBody(out);
}

}  // namespace mdktoidl
