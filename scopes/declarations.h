// Ways through the tree's declarations, and what to call one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "agent/diagnostics.h"
#include "tree/module.h"

namespace mdktoidl {

/// Calls `visit` with each declaration directly inside a node of the tree.
template <typename Visit>
void ForEachChild(const Root& root, const Node& parent, Visit visit) {
  const std::vector<Node*>& nodes = root.Nodes();
  for (std::uint32_t at = parent.Serial() + 1; at <= parent.LastSerial();) {
    const Node& child = *nodes[at];
    if (child.isDeclared()) visit(child);
    at = child.LastSerial() + 1;
  }
}

/// Calls `visit` with each declaration whose name lies in the scope that a node makes: those
/// directly inside it, and the enumerators of these.
template <typename Visit>
void ForEachNameIn(const Root& root, const Node& scope, Visit visit) {
  ForEachChild(root, scope, [&](const Node& member) {
    visit(member);
    if (member.AsEnumeration() != nullptr) ForEachChild(root, member, visit);
  });
}

/// The names that are written from the outermost declaration to this one, joined by "::".
std::string WrittenScopedName(const Node& node);

/// "struct Accounts::Entry", on one line.
std::string Describe(const Node& node);

/// Lets a diagnostic show another declaration, too.
void AddRelated(const Node& other, Diagnostic& diagnostic);

/// The declaration at the top that one is or stands in.
const Node& Outermost(const Node& node);

}  // namespace mdktoidl
