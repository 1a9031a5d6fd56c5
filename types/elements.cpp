#include "types/elements.h"

#include "types/properties.h"

namespace mdktoidl {

std::list<mdk::IMdeEntity*> Elements(mdk::IMdeEntity* element, const std::string& property) {
  std::list<mdk::IMdeEntity*> elements;
  element->GetEntities(property, elements);
  elements.remove(nullptr);
  return elements;
}

std::list<mdk::IMdeEntity*> Suppliers(mdk::IMdeEntity* element, const std::string& stereotype) {
  std::list<mdk::IMdeEntity*> suppliers;
  for (mdk::IMdeEntity* dependency : Elements(element, properties::clientDependency)) {
    if (dependency->HasStereotype(stereotype, 0)) {
      suppliers.push_back(dependency->GetEntity(properties::supplier, 0));
    }
  }
  suppliers.remove(nullptr);
  return suppliers;
}

}  // namespace mdktoidl
