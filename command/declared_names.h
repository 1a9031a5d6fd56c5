// The names of declarations as numbers: names that IDL takes for one have one number.
//
// Names are compared in their scopes, in the scopes around these, and along inheritance. Reading
// each of them once makes all that a matter of comparing numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "command/declarations.h"
#include "model/hash_index.h"

namespace command {

/// The number of a name: the first declaration that has it.
using NameNumber = DeclarationIndex;
inline constexpr NameNumber kNoName = kNoDeclaration;

class DeclaredNames {
 public:
  /// Numbers the names of the declarations, which must outlive this.
  explicit DeclaredNames(const Declarations& declarations);

  /// The number of a declaration's name; `kNoName` for one without a name.
  NameNumber Of(DeclarationIndex declaration) const { return numbers_[declaration]; }
  /// The number of a name; `kNoName` when nothing is declared under it.
  NameNumber Find(std::string_view name) const;
  /// What all numbers are below.
  std::size_t Size() const { return numbers_.size(); }

  /// Whether a declaration has a name and no other has the same. It clashes with nothing then.
  bool IsUnique(DeclarationIndex declaration) const {
    return numbers_[declaration] == declaration && isShared_[declaration] == 0;
  }

 private:
  NameNumber Enter(DeclarationIndex declaration);
  NameNumber Find(std::string_view name, std::uint32_t hash) const;

  const Declarations& declarations_;
  std::vector<NameNumber> numbers_;     // by declaration
  std::vector<std::uint8_t> isShared_;  // by number, 0 or 1; bits would be slower to read
  model::HashIndex index_;              // of the names
};

}  // namespace command
