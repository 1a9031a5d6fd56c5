// The declaration for which a type is resolved, as far as type mapping needs to know it.
//
// Type mapping stands below the node tree; this is how it asks the tree, at the place of use, how a
// name is to be spelled there.
#pragma once

#include <string>

#include "host/element.h"

namespace mdktoidl {

class TypeUser {
 public:
  virtual ~TypeUser() = default;

  /// How the declaration is named in messages: its construct word and its scoped name.
  virtual std::string Describe() const = 0;

  /// The name of a definition as IDL must spell it here: the simple name in scope, else the
  /// "::" name. The simple name, too, for what is not part of the export.
  virtual std::string Spell(mdk::IMdeEntity* definition) const = 0;
};

}  // namespace mdktoidl
