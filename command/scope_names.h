// The names declared in one scope after the other, as IDL compares them.
#pragma once

#include <cstdint>
#include <vector>

#include "command/declared_names.h"

namespace command {

class ScopeNames {
 public:
  explicit ScopeNames(const DeclaredNames& names) : names_(names), entries_(names.Size()) {}

  /// Forgets all names, for the next scope. Costs nothing.
  void Clear() { ++scope_; }

  /// Enters a declaration, whose name may clash; returns the one that had the name before, or
  /// `kNoDeclaration`. The first keeps the name.
  DeclarationIndex Enter(DeclarationIndex declaration) {
    Entry& entry = entries_[names_.Of(declaration)];
    if (entry.scope == scope_) return entry.declaration;
    entry = {scope_, declaration};
    return kNoDeclaration;
  }

  /// The declaration in the scope that has the name of another; `kNoDeclaration` when there is
  /// none, or when the other has its name alone.
  DeclarationIndex FindNameOf(DeclarationIndex declaration) const {
    const NameNumber number = names_.Of(declaration);
    if (!MayClash(number) || entries_[number].scope != scope_) return kNoDeclaration;
    return entries_[number].declaration;
  }

 private:
  struct Entry {
    std::uint32_t scope = 0;  // in which the name was declared last
    DeclarationIndex declaration = kNoDeclaration;
  };

  const DeclaredNames& names_;
  std::vector<Entry> entries_;  // by the name's number
  std::uint32_t scope_ = 1;
};

}  // namespace command
