#include "tree/declaration_user.h"

namespace mdktoidl {

std::string DeclarationUser::Describe() const {
  return std::string(word_) + declaration_.ScopedName("::");
}

std::string DeclarationUser::Spell(mdk::IMdeEntity* definition) const {
  const Node* node = Node::GetNodeRef(definition);
  return node == nullptr ? definition->GetValue("Name", 0) : declaration_.NameHere(*node);
}

}  // namespace mdktoidl
