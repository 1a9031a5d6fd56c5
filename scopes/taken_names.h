// Which names a new declaration can't have.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "scopes/scope_table.h"

namespace mdktoidl {

/// Scopes, each by the node that stands for it; null for the file's.
using ScopeSet = std::unordered_set<const Node*>;

class TakenNames {
 public:
  /// Knows the names in `scopes`, and in those among them that are in `homes` what is used there.
  TakenNames(const Root& root, const ScopeTable& table, const ScopeSet& scopes,
             const ScopeSet& homes);

  /// The name itself, or with the first number behind it that makes it free: no keyword, neither
  /// declared nor used in `home`, not the name of that, and not declared in any of `around`.
  std::string FreeName(const std::string& wanted, const Node* home, const ScopeSet& around) const;

  /// Notes a new declaration.
  void Declare(std::string_view name, const Node* home);

 private:
  using ScopesByName = std::unordered_map<std::string, ScopeSet>;

  bool IsFree(const std::string& name, const Node* home, const ScopeSet& around) const;
  void NoteDeclared(const Root& root, const ScopeTable& table, const ScopeSet& scopes);
  void NoteUsed(const Root& root, const ScopeTable& table, const ScopeSet& homes);

  ScopesByName declared_;  // names as IDL compares them
  ScopesByName used_;
};

}  // namespace mdktoidl
