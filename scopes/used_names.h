// Clashes of a scope's declarations with the names that are used in it.
//
// In IDL a name that is used in a scope counts as declared there, so nothing in the scope may have
// it, whichever comes first. What a struct uses counts for the interface around it as well, but not
// for the module.
#pragma once

#include <vector>

#include "scopes/declared_names.h"
#include "tree/use.h"

namespace mdktoidl {

class UseCheck {
 public:
  /// `scopeNames` holds the names of the scope that is checked, whichever that is.
  UseCheck(const Root& root, const DeclaredNames& names, const ScopeNames& scopeNames)
      : root_(root), names_(names), scopeNames_(scopeNames), isReported_(root.Nodes().size()) {}

  /// Checks what is used in one scope against the names declared in it.
  void Check(const Node& scope);

 private:
  void CheckUses(const Node& user);
  void CheckUse(const Use& use, const Node& user);
  void CheckScopesAround(const Node& used);
  const Node* FindAround(const Node& used, const Node* scope) const;
  void CheckHit(const Node* hit, const Node& used, const Node& user, UseRole role);
  void Report(const Node& at, const Node& used);

  const Root& root_;
  const DeclaredNames& names_;
  const ScopeNames& scopeNames_;
  std::vector<bool> isReported_;  // by serial
  const Node* scope_ = nullptr;
};

}  // namespace mdktoidl
