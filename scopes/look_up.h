// What a name means at the place where it is written, as IDL compilers look it up.
//
// They look in the scope where it is written, then in that scope's bases, then in the scope around
// it, and so on. Only the first identifier of a "::" name is looked up like that. A scope also
// counts as declaring what is used in it: the first identifier of a name that is used can't be
// declared there as well, except in a module around the scopes that use it.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "scopes/scope_table.h"
#include "tree/places.h"

namespace mdktoidl {

/// What a name would be taken for.
struct Meaning {
  enum class Kind : std::uint8_t {
    right,    ///< for what is meant
    nothing,  ///< it isn't found
    hidden,   ///< for something else
    clash     ///< for what is meant, but it enters a scope that declares something of that name
  };
  Kind kind = Kind::right;
  const Node* first = nullptr;  ///< what the first identifier should mean
  const Node* hit = nullptr;    ///< what is in the way
  const Node* scope = nullptr;  ///< and the scope that declares or inherits it; null for the file's
  bool isInherited = false;
};

/// The scope in which the declaration's name lies; null for the file.
inline const Node* NameScopeOf(const Node& node) {
  return static_cast<const Node*>(node.NameScope());
}

/// The innermost scope in which a use is looked up; null for the file.
const Node* StartOf(const Use& use);

/// Whether a use enters its first identifier into a scope, which is `start`, where it is looked up
/// first, or one around that.
bool Enters(const Use& use, const Node* scope, const Node* start);

class LookUp {
 public:
  /// `places` are those of a tree in its final order.
  LookUp(const Root& root, const DeclaredNames& names, const Places& places)
      : names_(names), places_(places), table_(root, names) {}

  /// What a use would mean if it were spelled so. Where that is right, the use counts as spelled so
  /// from then on: what it enters into scopes is in the way of others.
  Meaning Of(const Use& use, Spelling spelling);

  const ScopeTable& Table() const { return table_; }

 private:
  Meaning OfFirst(const Use& use, const Node& first);
  Meaning OfUnique(const Use& use, const Node& first);
  Meaning Enter(const Node& first, NameNumber name, const std::vector<const Node*>& scopes);
  bool isRight(const Node& hit, const Node& first) const;

  const DeclaredNames& names_;
  const Places& places_;
  ScopeTable table_;
  std::map<std::pair<const Node*, NameNumber>, const Node*> entered_;  // looked up only
};

}  // namespace mdktoidl
