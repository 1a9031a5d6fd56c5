// Clashes of a scope's declarations with the names that are used in it.
//
// In IDL the use of a name declares it, too: what a scope uses, nothing in the scope may be named,
// whichever comes first. A struct's uses count as its interface's, too, but not as its module's.
#pragma once

#include <string_view>
#include <vector>

#include "command/declaration_uses.h"
#include "command/declarations.h"
#include "command/name_findings.h"
#include "command/scope_names.h"

namespace command {

class UseCheck {
 public:
  UseCheck(const Declarations& declarations, const DeclarationUses& uses, NameFindings& findings)
      : declarations_(declarations),
        uses_(uses),
        findings_(findings),
        isReported_(declarations.Size()) {}

  /// Checks what is used in one scope against the names declared in it.
  void Check(const ScopeNames& names, DeclarationIndex scope);

 private:
  void CheckUses(DeclarationIndex user);
  void CheckUse(const Use& use, DeclarationIndex user);
  void CheckScopesAround(DeclarationIndex used);
  void CheckLabels(DeclarationIndex unionDeclaration);
  void CheckName(std::string_view name, DeclarationIndex used, DeclarationIndex user,
                 UsePlace place);
  bool IsHidden(DeclarationIndex used) const;
  bool IsItself(DeclarationIndex found, DeclarationIndex used) const;
  bool IsVisible(DeclarationIndex used, DeclarationIndex user) const;

  const Declarations& declarations_;
  const DeclarationUses& uses_;
  NameFindings& findings_;
  std::vector<bool> isReported_;
  const ScopeNames* names_ = nullptr;
  DeclarationIndex scope_ = kNoDeclaration;
};

}  // namespace command
