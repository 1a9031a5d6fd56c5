#include "tree/alias.h"

#include <unordered_set>

namespace mdktoidl {

// Every definition on the way remembers the end, so that many users of a long chain of definitions
// cost its length once.
Alias Unaliased(const Node& node) {
  std::unordered_set<const Node*> passed;
  Alias current{&node, {}};
  while (current.declaration != nullptr) {
    const auto next = current.declaration->AliasOf();
    if (!next) break;
    const bool isCircle = !passed.insert(current.declaration).second;
    current = isCircle ? Alias() : *next;
  }
  for (const Node* definition : passed) definition->RememberAlias(current);
  return current;
}

}  // namespace mdktoidl
