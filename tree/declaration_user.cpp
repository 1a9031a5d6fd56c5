#include "tree/declaration_user.h"

#include "types/properties.h"

namespace mdktoidl {

std::string DeclarationUser::Describe() const {
  return std::string(word_) + declaration_.ScopedName("::");
}

std::string DeclarationUser::Spell(mdk::IMdeEntity* definition) const {
  const Node* node = Node::GetNodeRef(definition);
  if (node == nullptr) return definition->GetValue(properties::name, 0);
  return isHidden(*node) ? node->ScopedName("::") : declaration_.NameHere(*node);
}

bool DeclarationUser::isHidden(const Node& other) const {
  const std::string name = other.Name();
  const Definition* each = declaration_.Scope();
  for (; each != nullptr && each != other.Scope(); each = each->Scope()) {
    if (static_cast<const Node*>(each)->declares(name)) return true;
  }
  return false;
}

}  // namespace mdktoidl
