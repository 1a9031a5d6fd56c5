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

/// The number of a name; counts from 0.
using NameNumber = std::uint32_t;
inline constexpr NameNumber kNoName = model::HashIndex::none;

class DeclaredNames {
 public:
  /// Numbers the names of the declarations, which must outlive this.
  explicit DeclaredNames(const Declarations& declarations);

  /// The number of a declaration's name; `kNoName` for one without a name.
  NameNumber Of(DeclarationIndex declaration) const { return numbers_[declaration]; }
  /// The number of a name; `kNoName` when nothing is declared under it.
  NameNumber Find(std::string_view name) const;
  /// How many names there are.
  std::size_t Size() const { return names_.size(); }

 private:
  NameNumber Enter(std::string_view name);
  NameNumber Find(std::string_view name, std::uint32_t hash) const;

  std::vector<NameNumber> numbers_;      // by declaration
  std::vector<std::string_view> names_;  // by number, as the first declaration spells it
  model::HashIndex index_;               // of the names
};

}  // namespace command
