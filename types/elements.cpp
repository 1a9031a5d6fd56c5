#include "types/elements.h"

namespace mdktoidl {

std::list<mdk::IMdeEntity*> Elements(mdk::IMdeEntity* element, const std::string& property) {
  std::list<mdk::IMdeEntity*> elements;
  element->GetEntities(property, elements);
  elements.remove(nullptr);
  return elements;
}

std::list<mdk::IMdeEntity*> Suppliers(mdk::IMdeEntity* element, const Stereotype& stereotype) {
  std::list<mdk::IMdeEntity*> suppliers;
  for (mdk::IMdeEntity* dependency : Elements(element, properties::clientDependency)) {
    if (hasStereotype(dependency, stereotype)) {
      suppliers.push_back(dependency->GetEntity(properties::supplier, 0));
    }
  }
  suppliers.remove(nullptr);
  return suppliers;
}

std::list<mdk::IMdeEntity*> OwnedAttributes(mdk::IMdeEntity* element) {
  std::list<mdk::IMdeEntity*> members = Elements(element, properties::ownedMember);
  members.remove_if(
      [](mdk::IMdeEntity* member) { return !member->IsKindOf(metaclasses::attribute); });
  return members;
}

bool isMarked(mdk::IMdeEntity* element, const Stereotype& stereotype) {
  return element->EvalExpression(stereotype.Marking(), 0) != nullptr;
}

bool hasStereotype(mdk::IMdeEntity* element, const Stereotype& stereotype) {
  return element->HasStereotype(stereotype.Name(), 0);
}

bool isPublic(mdk::IMdeEntity* element) {
  const std::string visibility = element->GetValue(properties::visibility, 0);
  return visibility == values::publicVisibility || visibility == values::noVisibility;
}

// Whatever the tag holds but "false" makes a constant, and so it is with local interfaces; all
// other tags have to be "true". Both are deliberate: models in use rely on either.
bool isConstant(mdk::IMdeEntity* element) {
  return TaggedLiteral(element, tags::isConstant, "false") != "false";
}

bool hasMultiplicity(mdk::IMdeEntity* element) {
  return !Elements(element, properties::multiplicity).empty();
}

std::string TaggedLiteral(mdk::IMdeEntity* element, const Tag& tag, const std::string& absent) {
  mdk::IMdeEntity* value = element->EvalExpression(tag.Expression(), 0);
  return value == nullptr ? absent : value->GetValue(properties::name, 0);
}

bool isTagTrue(mdk::IMdeEntity* element, const Tag& tag) {
  return TaggedLiteral(element, tag, "false") == "true";
}

}  // namespace mdktoidl
