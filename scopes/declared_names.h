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
  /// Whether anything in a declaration, itself included, has a name that may clash.
  bool MayClashIn(const Node& declaration) const;

 private:
  std::vector<NameNumber> numbers_;      // by serial
  std::vector<std::uint32_t> clashing_;  // serials of what has such names, sorted
  std::size_t size_ = kNoName + 1;
};

}  // namespace mdktoidl
