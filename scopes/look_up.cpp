#include "scopes/look_up.h"

namespace mdktoidl {

const Node* StartOf(const Use& use) {
  const bool isInside =
      use.user->Kind().scope != ScopeKind::none && !isInHeader(use.role) && !use.isBeforeName;
  return isInside ? use.user : NameScopeOf(*use.user);
}

bool Enters(const Use& use, const Node* scope, const Node* start) {
  if (scope == nullptr) return false;
  return scope == start || (!scope->isModule() && !isInHeader(use.role));
}

namespace {

bool Inherits(const Node* scope) {
  return scope != nullptr && scope->Kind().inheritance == Inheritance::inherits;
}

}  // namespace

Meaning LookUp::Of(const Use& use, Spelling spelling) {
  if (spelling == Spelling::absolute) return {};
  if (spelling == Spelling::simple) {
    // By another name than it has it isn't found.
    if (use.name != nullptr && use.Name() != use.used->Name()) return {Meaning::Kind::nothing};
    return OfFirst(use, *use.used);
  }
  return OfFirst(use, NameScopeOf(*use.used) == nullptr ? *use.used : Outermost(*use.used));
}

bool LookUp::isRight(const Node& hit, const Node& first) const {
  const bool isSameElement = hit.Entity() != nullptr && hit.Entity() == first.Entity();
  if (isSameElement || table_.ScopeOf(&hit) == table_.ScopeOf(&first)) return true;
  // Of a literal that an enumeration has twice the first stands for both.
  return hit.isEnumerator() && hit.Enclosing() == first.Enclosing();
}

Meaning LookUp::OfFirst(const Use& use, const Node& first) {
  const NameNumber name = names_.Of(first);
  if (!MayClash(name)) return OfUnique(use, first);
  const Node* start = StartOf(use);
  std::vector<const Node*> entered;
  for (const Node* scope = start;; scope = NameScopeOf(*scope)) {
    const Node* hit = table_.Declared(scope, name);
    if (hit != nullptr && isRight(*hit, first)) return Enter(first, name, entered);
    if (hit != nullptr && Enters(use, scope, start)) {
      return {Meaning::Kind::clash, &first, hit, scope, false};
    }
    if (hit != nullptr && places_.IsDeclaredBefore(*hit, *use.user)) {
      return {Meaning::Kind::hidden, &first, hit, scope, false};
    }
    if (Inherits(scope)) {
      const auto [inherited, isAmbiguous] = table_.InheritedBy(*scope, name);
      if (inherited != nullptr && !isAmbiguous && isRight(*inherited, first)) {
        return Enter(first, name, entered);
      }
      if (inherited != nullptr) return {Meaning::Kind::hidden, &first, inherited, scope, true};
      if (table_.IsExhausted()) return {Meaning::Kind::nothing};
    }
    if (scope == nullptr) return {Meaning::Kind::nothing};
    if (Enters(use, scope, start)) entered.push_back(table_.ScopeOf(scope));
  }
}

Meaning LookUp::Enter(const Node& first, NameNumber name, const std::vector<const Node*>& scopes) {
  for (const Node* scope : scopes) {
    const auto entry = entered_.find({scope, name});
    if (entry != entered_.end() && !isRight(*entry->second, first)) {
      return {Meaning::Kind::clash, &first, entry->second, scope, false};
    }
  }
  for (const Node* scope : scopes) entered_.try_emplace({scope, name}, &first);
  return {};
}

// Nothing can hide it or clash with it: it has to be found alone.
Meaning LookUp::OfUnique(const Use& use, const Node& first) {
  const Node* declaring = table_.ScopeOf(NameScopeOf(first));
  if (declaring == nullptr) return {};
  const Node* start = StartOf(use);
  if (use.isInScope && &first == use.used && start != nullptr && declaring->Encloses(*start)) {
    return {};
  }
  for (const Node* scope = start; scope != nullptr; scope = NameScopeOf(*scope)) {
    if (table_.ScopeOf(scope) == declaring) return {};
    if (Inherits(scope) && table_.Inherits(*scope, declaring)) return {};
  }
  return {Meaning::Kind::nothing};
}

}  // namespace mdktoidl
