// The declarations that one declaration names in its own text, members and nested ones left out.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "command/declarations.h"

namespace command {

/// Where a name stands, as far as IDL's rules about names tell places apart.
enum class UsePlace : std::uint8_t {
  kPlain,
  /// In a template or a bound, where the agent spells names past nearer ones that hide them.
  kInTemplate,
  kRaised,
  kBase,
  /// Behind a declaration's own name, or about it: in no scope that the declaration makes.
  kHeader,
};

struct Use {
  DeclarationIndex used;
  UsePlace place;
};

/// What each declaration names, in the order written. An operation names its result's type; its
/// parameters are declarations of their own.
class DeclarationUses {
 public:
  explicit DeclarationUses(const Declarations& declarations);

  std::span<const Use> Of(DeclarationIndex user) const {
    return std::span(uses_).subspan(starts_[user], starts_[user + 1] - starts_[user]);
  }

 private:
  std::vector<Use> uses_;
  std::vector<std::uint32_t> starts_;  // by user, where its uses begin
};

/// The attribute that gives a union its discriminator; null when there is none.
const model::Element* DiscriminatorOf(const model::Element& unionElement);

}  // namespace command
