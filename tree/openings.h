// Modules that are opened for single declarations inside them, from the outermost in.
#pragma once

#include <unordered_set>

#include "tree/container.h"

namespace mdktoidl {

/// The modules that are open in a scope while its declarations are written.
class Openings {
 public:
  /// Within `scope`, whose own body is being written.
  Openings(const Node& scope, Writer& out) : scope_(&scope), open_(&scope), out_(out) {}

  /// Opens the modules around a declaration of the scope that are not open, after closing those
  /// that it doesn't stand in. A module's first opening has its comment and its forward
  /// declarations.
  void GoTo(const Node& declaration);
  void CloseAll() { CloseUpTo(scope_); }

 private:
  void CloseUpTo(const Node* around);

  const Node* scope_;
  const Node* open_;  // the innermost
  Writer& out_;
  std::unordered_set<const Node*> opened_;  // at some time
};

/// Writes forward declarations in `scope`; those of declarations in modules inside it in openings
/// of these of their own. `scope` may be the root.
void WriteForwards(const Node& scope, const NodeList& declarations, Writer& out);

}  // namespace mdktoidl
