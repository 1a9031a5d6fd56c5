// The names declared in one scope, as IDL compares them.
#pragma once

#include <string_view>
#include <unordered_map>

#include "command/declarations.h"
#include "command/idl_identifier.h"

namespace command {

class ScopeNames {
 public:
  /// Enters a declaration by its name, which must outlive this; returns the one that had the name
  /// before, or `kNoDeclaration`. The first keeps the name.
  DeclarationIndex Enter(std::string_view name, DeclarationIndex declaration);

  /// The declaration of a name; `kNoDeclaration` when there is none.
  DeclarationIndex Find(std::string_view name) const;

 private:
  std::unordered_map<std::string_view, DeclarationIndex, NameHash, NameEqual> names_;
};

}  // namespace command
