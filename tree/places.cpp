#include "tree/places.h"

#include <algorithm>
#include <limits>

#include "options/options.h"

namespace mdktoidl {

namespace {

constexpr std::uint32_t nowhere = std::numeric_limits<std::uint32_t>::max();

}  // namespace

Places::Places(const Root& root)
    : defined_(root.Nodes().size(), nowhere), declared_(root.Nodes().size(), nowhere) {
  defined_[root.Serial()] = declared_[root.Serial()] = next_++;
  PlaceMembers(root);
  if (options.Mapping() != ONE_FILE) PlaceFiles(root);
}

void Places::PlaceMembers(const OrderedScope& scope) {
  PlaceForwards(scope);
  for (const Node* child : scope.Sorted()) {
    OpenModules(*child, scope);
    Place(*child);
  }
}

void Places::PlaceForwards(const OrderedScope& scope) {
  for (const Node* node : scope.Forwards()) {
    if (node->Kind().forward == Forward::no) continue;
    // Modules are opened for it.
    for (const Node* each = node->Enclosing(); each != nullptr && each != &scope;
         each = each->Enclosing()) {
      declared_[each->Serial()] = std::min(declared_[each->Serial()], next_);
    }
    std::uint32_t& declared = declared_[node->Serial()];
    declared = std::min(declared, next_++);
  }
}

/// Modules inside `scope` that are opened for what stands in them.
void Places::OpenModules(const Node& declaration, const Node& scope) {
  std::vector<const Node*> modules;
  for (const Node* each = declaration.Enclosing();
       each != nullptr && each != &scope && defined_[each->Serial()] == nowhere;
       each = each->Enclosing()) {
    modules.push_back(each);
  }
  for (; !modules.empty(); modules.pop_back()) {
    const Node& module = *modules.back();
    defined_[module.Serial()] = next_++;
    declared_[module.Serial()] = std::min(declared_[module.Serial()], defined_[module.Serial()]);
    PlaceForwards(*module.AsOrderedScope());
  }
}

// What stands inside a declaration that doesn't order its members comes in their order.
void Places::Place(const Node& node) {
  const OrderedScope* scope = node.AsOrderedScope();
  const std::uint32_t last = scope == nullptr ? node.LastSerial() : node.Serial();
  for (std::uint32_t serial = node.Serial(); serial <= last; ++serial) {
    defined_[serial] = next_++;
    declared_[serial] = std::min(declared_[serial], defined_[serial]);
  }
  if (scope != nullptr) PlaceMembers(*scope);
}

void Places::PlaceFiles(const Root& root) {
  files_.resize(root.Nodes().size());
  for (const Node* node : root.Nodes()) {
    const Node* around = node->Enclosing();
    const bool isOwn = node->isModule() || around == nullptr;
    files_[node->Serial()] =
        isOwn ? (node->isModule() ? node->Serial() : root.Serial()) : files_[around->Serial()];
  }
}

}  // namespace mdktoidl
