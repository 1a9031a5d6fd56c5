#include "tree/struct.h"

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "tree/field.h"
#include "types/elements.h"
#include "types/marking.h"
#include "types/properties.h"

namespace mdktoidl {

Struct::Struct(mdk::IMdeEntity* element, Container* parent) : Container(element, parent) {
  CreateNodeRef();
  const std::list<mdk::IMdeEntity*> members = Elements(element, properties::ownedMember);
  if (members.empty()) Report(Message::structHasNoMembers, {ScopedName("::")});
  children.reserve(members.size());
  for (mdk::IMdeEntity* member : members) {
    if (!member->IsKindOf("Attribute") || !isPublic(member)) continue;
    if (isConstant(member)) Report(Message::structHasConstant, {ScopedName("::")});
    Adopt(std::make_unique<Field>(member, this));
  }
}

void Struct::Unparse(std::ofstream& out) {
  UnparseHeading(out);
  Write(out, {"struct ", Name()});
  UnparseBody(out);
}

void Struct::UnparseForward(std::ofstream& out) const {
  newline(out);
  out << "struct " << Name() << ';';
}

}  // namespace mdktoidl
