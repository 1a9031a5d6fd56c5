// The names of declarations as numbers: names that IDL takes for one have one number.
//
// Names are compared in their scopes, in the scopes around these, and along inheritance. Reading
// each of them once makes all that a matter of comparing numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "command/declarations.h"

namespace command {

using NameNumber = std::uint32_t;
/// The number of declarations without a name.
inline constexpr NameNumber kNoName = 0;
/// The number of each declaration that certainly shares its name with no other.
inline constexpr NameNumber kUniqueName = ~NameNumber{0};

class DeclaredNames {
 public:
  explicit DeclaredNames(const Declarations& declarations);

  NameNumber Of(DeclarationIndex declaration) const { return numbers_[declaration]; }
  /// What all numbers but `kUniqueName` are below.
  std::size_t Size() const { return size_; }

 private:
  std::vector<NameNumber> numbers_;  // by declaration
  std::size_t size_ = kNoName + 1;
};

/// Whether anything can clash with what has that number.
constexpr bool MayClash(NameNumber number) { return number != kNoName && number != kUniqueName; }

}  // namespace command
