#include "command/scope_names.h"

namespace command {

DeclarationIndex ScopeNames::Enter(std::string_view name, DeclarationIndex declaration) {
  const auto [entry, isNew] = names_.try_emplace(name, declaration);
  return isNew ? kNoDeclaration : entry->second;
}

DeclarationIndex ScopeNames::Find(std::string_view name) const {
  const auto found = names_.find(name);
  return found == names_.end() ? kNoDeclaration : found->second;
}

}  // namespace command
