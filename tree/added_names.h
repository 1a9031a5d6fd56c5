// The names of typedefs that are added to the model's declarations.
//
// A name follows from the type and from the scope that it is declared in, so it stays when other
// things come to use the type. What is declared near those users decides only whether it is free.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "tree/module.h"

namespace mdktoidl {

/// The number of a bound or a dimension as it is compared and put into names: "0x10" is "16".
std::string PlainNumber(std::string_view text);

/// Names of element types that declarations of several modules have.
class SharedNames {
 public:
  /// Knows of those declared directly in modules, or at the top.
  explicit SharedNames(const Root& root);

  bool Has(const Node& declaration) const;

 private:
  std::unordered_map<std::uint32_t, std::uint32_t> scopes_;  // by hash, the first one's serial
  std::unordered_set<std::uint32_t> shared_;                 // hashes
};

/// What a typedef of a type is called in a scope, if that is free: "AmountSeq10".
std::string TypedefName(const WrittenType& type, const Node& scope, const SharedNames& shared);

/// Which names are taken, in the scopes that are asked about.
class TakenNames {
 public:
  explicit TakenNames(const Root& root);

  /// Gives a declaration, which is added to `scope`, its name: the one that is wanted, or that with
  /// the next number that makes it free. `around` are all scopes around the declaration and around
  /// its users, each once.
  std::string Take(const std::string& wanted, const Node& scope,
                   const std::vector<const Node*>& around);

 private:
  /// A name in a scope.
  static std::uint64_t KeyOf(std::uint32_t hash, const Node& scope) {
    return std::uint64_t{hash} << 32 | scope.Serial();
  }

  void FindOpenings();
  const Node& FirstOpening(const Node& scope) const;
  void Enter(const Node& scope);
  void EnterMembers(const Node& scope, const Node& first);
  bool IsDeclared(std::uint32_t hash, const Node& scope);
  std::vector<const Node*> WithBases(const std::vector<const Node*>& scopes);

  const Root& root_;
  std::unordered_map<const Node*, const Node*> firstOpenings_;  // of modules opened again
  std::unordered_map<const Node*, std::vector<const Node*>> openings_;
  std::vector<bool> entered_;                   // by the scope's serial
  std::unordered_set<std::uint64_t> declared_;  // in the scopes entered
  std::unordered_set<std::uint64_t> used_;      // names of added declarations, where they are used
  std::size_t stepsLeft_;                       // along bases
};

}  // namespace mdktoidl
