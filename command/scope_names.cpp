#include "command/scope_names.h"

namespace command {

DeclarationIndex ScopeNames::Enter(DeclarationIndex declaration) {
  Entry& entry = entries_[names_.Of(declaration)];
  if (entry.scope == scope_) return entry.declaration;
  entry = {scope_, declaration};
  return kNoDeclaration;
}

DeclarationIndex ScopeNames::FindNameOf(DeclarationIndex declaration) const {
  return At(names_.Of(declaration));
}

DeclarationIndex ScopeNames::Find(std::string_view name) const { return At(names_.Find(name)); }

DeclarationIndex ScopeNames::At(NameNumber number) const {
  if (number == kNoName || entries_[number].scope != scope_) return kNoDeclaration;
  return entries_[number].declaration;
}

}  // namespace command
