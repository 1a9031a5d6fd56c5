// The names of declarations as numbers: names that IDL takes for one have one number.
//
// Names are compared in their scopes, in the scopes around these, and along inheritance. Reading
// each of them once makes all that a matter of comparing numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "scopes/declarations.h"

namespace mdktoidl {

using NameNumber = std::uint32_t;
/// The number of declarations without a name.
inline constexpr NameNumber kNoName = 0;
/// The number of each declaration that certainly shares its name with no other.
inline constexpr NameNumber kUniqueName = ~NameNumber{0};

/// Whether anything can clash with what has that number.
constexpr bool MayClash(NameNumber number) { return number != kNoName && number != kUniqueName; }

class DeclaredNames {
 public:
  explicit DeclaredNames(const Root& root);

  NameNumber Of(const Node& declaration) const { return numbers_[declaration.Serial()]; }
  /// What all numbers but `kUniqueName` are below.
  std::size_t Size() const { return size_; }
  /// Whether anything in a declaration, itself included, has or uses a name that may clash.
  bool MayClashIn(const Node& declaration) const;

 private:
  void NoteUses(const Root& root);

  std::vector<NameNumber> numbers_;      // by serial
  std::vector<std::uint32_t> clashing_;  // serials of what has or uses names that may clash, sorted
  std::size_t size_ = kNoName + 1;
};

/// The names declared in one scope after the other.
class ScopeNames {
 public:
  explicit ScopeNames(const DeclaredNames& names) : names_(names), entries_(names.Size()) {}

  /// Forgets all names, for the next scope. Costs nothing.
  void Clear() { ++scope_; }

  /// Enters a declaration, whose name may clash; returns the one that had the name before, or null.
  /// The first keeps the name.
  const Node* Enter(const Node& declaration) {
    Entry& entry = entries_[names_.Of(declaration)];
    if (entry.scope == scope_) return entry.declaration;
    entry = {scope_, &declaration};
    return nullptr;
  }

  /// The declaration in the scope that has the name of another; null when there is none, or when
  /// the other has its name alone.
  const Node* FindNameOf(const Node& declaration) const {
    const NameNumber number = names_.Of(declaration);
    if (!MayClash(number) || entries_[number].scope != scope_) return nullptr;
    return entries_[number].declaration;
  }

 private:
  struct Entry {
    std::uint32_t scope = 0;  // in which the name was declared last
    const Node* declaration = nullptr;
  };

  const DeclaredNames& names_;
  std::vector<Entry> entries_;  // by the name's number
  std::uint32_t scope_ = 1;
};

}  // namespace mdktoidl
