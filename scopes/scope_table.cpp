#include "scopes/scope_table.h"

#include <unordered_set>

#include "types/identifier.h"

namespace mdktoidl {

ScopeTable::ScopeTable(const Root& root, const DeclaredNames& names) {
  constexpr std::size_t stepsPerDeclaration = 64;
  stepsLeft_ = stepsPerDeclaration * root.Nodes().size();
  Open(root, names);
}

ScopeTable::Key ScopeTable::KeyOf(const Node* scope, NameNumber name) {
  const Key number = scope == nullptr ? 0 : Key{scope->Serial()} + 1;
  return number << 32 | name;
}

// In the order of creation, so that the scope around a declaration is known before it.
void ScopeTable::Open(const Root& root, const DeclaredNames& names) {
  opened_.assign(root.Nodes().begin(), root.Nodes().end());
  for (const Node* node : root.Nodes()) {
    const NameNumber name = names.Of(*node);
    if (!MayClash(name) || !node->isDeclared()) continue;
    const Node* around = ScopeOf(static_cast<const Node*>(node->NameScope()));
    const auto [entry, isNew] = declared_.try_emplace(KeyOf(around, name), node);
    const Node& first = *entry->second;
    if (!isNew && node->isModule() && first.isModule() && first.Name() == node->Name()) {
      opened_[node->Serial()] = &first;
    }
  }
}

const Node* ScopeTable::Declared(const Node* scope, NameNumber name) const {
  const auto found = declared_.find(KeyOf(ScopeOf(scope), name));
  return found == declared_.end() ? nullptr : found->second;
}

bool ScopeTable::TakeStep() {
  if (stepsLeft_ != 0) --stepsLeft_;
  return stepsLeft_ != 0;
}

ScopeTable::Inherited ScopeTable::Merge(const Node& heir, NameNumber name) {
  Inherited merged;
  for (const Use& use : heir.Used()) {
    if (!isBase(use.role) || !TakeStep()) continue;
    const Node* own = Declared(use.used, name);
    const auto passedOn = inherited_.find(KeyOf(use.used, name));
    Inherited found{own, false};
    if (own == nullptr && passedOn != inherited_.end()) found = passedOn->second;
    if (found.declaration == nullptr) continue;
    const bool isOther = merged.declaration != nullptr && merged.declaration != found.declaration;
    merged.isAmbiguous = merged.isAmbiguous || found.isAmbiguous || isOther;
    if (merged.declaration == nullptr) merged.declaration = found.declaration;
  }
  return merged;
}

// Bases are looked through from a list: what a model inherits from may be deep. Where they lead in
// a circle, what was not finished passes on nothing; the circle itself is an error.
ScopeTable::Inherited ScopeTable::InheritedBy(const Node& heir, NameNumber name) {
  std::vector<const Node*> path = {&heir};
  while (!path.empty()) {
    const Node& node = *path.back();
    const bool isNew = inherited_.try_emplace(KeyOf(&node, name)).second;
    if (isNew && TakeStep()) {
      for (const Use& use : node.Used()) {
        if (isBase(use.role) && !inherited_.contains(KeyOf(use.used, name))) {
          path.push_back(use.used);
        }
      }
      continue;
    }
    inherited_[KeyOf(&node, name)] = Merge(node, name);
    path.pop_back();
  }
  return inherited_[KeyOf(&heir, name)];
}

bool ScopeTable::Inherits(const Node& heir, const Node* base) {
  std::vector<const Node*> queue = {&heir};
  std::unordered_set<const Node*> passed = {&heir};
  for (std::size_t i = 0; i < queue.size(); ++i) {
    for (const Use& use : queue[i]->Used()) {
      if (!isBase(use.role)) continue;
      if (use.used == base) return true;
      if (!TakeStep()) return false;
      if (passed.insert(use.used).second) queue.push_back(use.used);
    }
  }
  return false;
}

}  // namespace mdktoidl
