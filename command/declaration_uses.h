// The declarations that one declaration names in its own text, members and nested ones left out.
#pragma once

#include <cstdint>
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
  /// A component that a home manages, its key; in no scope of its own.
  kHeader,
};

struct Use {
  DeclarationIndex used;
  UsePlace place;
};

/// Appends what a declaration names, in the order written. An operation names its result's type;
/// its parameters are declarations of their own.
void AppendUses(const Declarations& declarations, DeclarationIndex user, std::vector<Use>& uses);

/// The attribute that gives a union its discriminator; null when there is none.
const model::Element* DiscriminatorOf(const model::Element& unionElement);

}  // namespace command
