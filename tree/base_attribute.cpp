#include "tree/base_attribute.h"

#include "agent/diagnostics.h"
#include "types/elements.h"
#include "types/properties.h"

namespace mdktoidl {

std::list<mdk::IMdeEntity*> OwnedAttributes(mdk::IMdeEntity* element) {
  std::list<mdk::IMdeEntity*> members = Elements(element, properties::ownedMember);
  members.remove_if([](mdk::IMdeEntity* member) { return !member->IsKindOf("Attribute"); });
  return members;
}

mdk::IMdeEntity* BaseAttribute(const Node& declaration, Message lacks, Message more) {
  const std::list<mdk::IMdeEntity*> attributes = OwnedAttributes(declaration.Entity());
  if (attributes.size() != 1) {
    Report(attributes.empty() ? lacks : more, {declaration.ScopedName("::")});
  }
  return attributes.empty() ? nullptr : attributes.front();
}

bool hasMultiplicity(mdk::IMdeEntity* element) {
  return !Elements(element, properties::multiplicity).empty();
}

}  // namespace mdktoidl
