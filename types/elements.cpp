#include "types/elements.h"

namespace mdktoidl {

std::list<mdk::IMdeEntity*> Elements(mdk::IMdeEntity* element, const std::string& property) {
  std::list<mdk::IMdeEntity*> elements;
  element->GetEntities(property, elements);
  elements.remove(nullptr);
  return elements;
}

}  // namespace mdktoidl
