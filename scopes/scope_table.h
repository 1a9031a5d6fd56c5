// What each scope declares and inherits, by name.
//
// Only names that may clash are kept: whoever asks for another finds what is meant, or nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "scopes/declared_names.h"

namespace mdktoidl {

/// Whether what it uses in that role is a base, whose members it inherits.
constexpr bool isBase(UseRole role) { return role == UseRole::base || role == UseRole::supports; }

class ScopeTable {
 public:
  ScopeTable(const Root& root, const DeclaredNames& names);

  /// The node that stands for a scope: of a module that is opened several times the first opening.
  /// Null, the scope of the file, stands for itself.
  const Node* ScopeOf(const Node* node) const {
    return node == nullptr ? nullptr : opened_[node->Serial()];
  }

  /// The first declaration of a name in a scope; null when there is none.
  const Node* Declared(const Node* scope, NameNumber name) const;

  /// What a scope inherits by a name.
  struct Inherited {
    const Node* declaration = nullptr;  ///< null for nothing
    bool isAmbiguous = false;           ///< two bases have different declarations of that name
  };
  Inherited InheritedBy(const Node& heir, NameNumber name);

  /// Whether the scope `base` is among the bases of `heir`, or the bases of these.
  bool Inherits(const Node& heir, const Node* base);

  /// So much was looked through that questions about inheritance are no longer answered: each costs
  /// as much as there are bases, and a model may have many of both. Nothing is found then.
  bool IsExhausted() const { return stepsLeft_ == 0; }

 private:
  using Key = std::uint64_t;

  static Key KeyOf(const Node* scope, NameNumber name);
  void Open(const Root& root, const DeclaredNames& names);
  bool TakeStep();
  Inherited Merge(const Node& heir, NameNumber name);

  std::vector<const Node*> opened_;  // by serial
  std::unordered_map<Key, const Node*> declared_;
  std::unordered_map<Key, Inherited> inherited_;  // as far as it was asked for
  std::size_t stepsLeft_;
};

}  // namespace mdktoidl
