#include "tree/base_attribute.h"

#include "types/elements.h"

namespace mdktoidl {

std::list<mdk::IMdeEntity*> OwnedAttributes(mdk::IMdeEntity* element) {
  std::list<mdk::IMdeEntity*> members = Elements(element, "OwnedMember");
  members.remove_if([](mdk::IMdeEntity* member) { return !member->IsKindOf("Attribute"); });
  return members;
}

bool hasMultiplicity(mdk::IMdeEntity* element) {
  return !Elements(element, "Multiplicity").empty();
}

}  // namespace mdktoidl
