#include "tree/alias.h"

#include <unordered_set>

namespace mdktoidl {

Alias Unaliased(const Node& node) {
  std::unordered_set<const Node*> passed;
  Alias current{&node, {}};
  while (current.declaration != nullptr) {
    const auto next = current.declaration->AliasOf();
    if (!next) return current;
    if (!passed.insert(current.declaration).second) return {};
    current = *next;
  }
  return current;
}

}  // namespace mdktoidl
