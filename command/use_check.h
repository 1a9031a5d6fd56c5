// Clashes of a scope's declarations with the names that are used in it.
//
// In IDL the use of a name declares it, too: what a scope uses, nothing in the scope may be named,
// whichever comes first. A struct's uses count as its interface's, too, but not as its module's.
#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "command/declaration_uses.h"
#include "command/declarations.h"
#include "command/declared_names.h"
#include "command/idl_identifier.h"
#include "command/name_findings.h"
#include "command/scope_names.h"

namespace command {

class UseCheck {
 public:
  /// `scopeNames` holds the names of the scope that is checked, whichever that is.
  UseCheck(const Declarations& declarations, const DeclaredNames& names,
           const ScopeNames& scopeNames, const DeclarationUses& uses, NameFindings& findings)
      : declarations_(declarations),
        names_(names),
        scopeNames_(scopeNames),
        uses_(uses),
        findings_(findings),
        isReported_(declarations.Size()) {}

  /// Checks what is used in one scope against the names declared in it.
  void Check(DeclarationIndex scope);

 private:
  /// What is declared in a scope, by name.
  struct LabelledScope {
    DeclarationIndex scope = kNoDeclaration;
    std::unordered_map<std::string_view, DeclarationIndex, NameHash, NameEqual> members;
  };

  void CheckUses(DeclarationIndex user);
  void CheckUse(const Use& use, DeclarationIndex user);
  void CheckScopesAround(DeclarationIndex used);
  DeclarationIndex FindAround(DeclarationIndex used, DeclarationIndex scope) const;
  void CheckLabels(DeclarationIndex unionDeclaration);
  DeclarationIndex FindLabel(std::string_view label);
  void CheckHit(DeclarationIndex hit, DeclarationIndex used, DeclarationIndex user, UsePlace place);
  bool IsHidden(DeclarationIndex used) const;
  bool IsItself(DeclarationIndex found, DeclarationIndex used) const;
  bool IsReopened(DeclarationIndex one, DeclarationIndex other) const;
  bool IsVisible(DeclarationIndex used, DeclarationIndex user) const;

  const Declarations& declarations_;
  const DeclaredNames& names_;
  const ScopeNames& scopeNames_;
  const DeclarationUses& uses_;
  NameFindings& findings_;
  std::vector<bool> isReported_;
  LabelledScope labelled_;  // the last scope that labels were looked for in
  DeclarationIndex scope_ = kNoDeclaration;
};

}  // namespace command
