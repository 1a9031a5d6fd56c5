#include "scopes/taken_names.h"

#include <algorithm>

#include "scopes/look_up.h"
#include "types/identifier.h"

namespace mdktoidl {
namespace {

std::string Key(std::string_view name) { return Folded(Unescaped(name)); }

bool HaveCommon(const ScopeSet& left, const ScopeSet& right) {
  const ScopeSet& smaller = left.size() < right.size() ? left : right;
  const ScopeSet& larger = left.size() < right.size() ? right : left;
  return std::ranges::any_of(smaller, [&](const Node* each) { return larger.contains(each); });
}

/// The identifier of a use that is looked up; null for none.
const Node* FirstOf(const Use& use) {
  if (use.spelling == Spelling::none || use.spelling == Spelling::absolute) return nullptr;
  const bool isSimple = use.spelling == Spelling::simple || NameScopeOf(*use.used) == nullptr;
  return isSimple ? use.used : &Outermost(*use.used);
}

}  // namespace

TakenNames::TakenNames(const Root& root, const ScopeTable& table, const ScopeSet& scopes,
                       const ScopeSet& homes) {
  NoteDeclared(root, table, scopes);
  NoteUsed(root, table, homes);
}

void TakenNames::NoteDeclared(const Root& root, const ScopeTable& table, const ScopeSet& scopes) {
  for (const Node* node : root.Nodes()) {
    if (!node->isDeclared()) continue;
    const Node* scope = table.ScopeOf(NameScopeOf(*node));
    if (scopes.contains(scope)) declared_[Key(node->WrittenName())].insert(scope);
  }
}

void TakenNames::NoteUsed(const Root& root, const ScopeTable& table, const ScopeSet& homes) {
  for (const Node* node : root.Nodes()) {
    for (const Use& use : node->Used()) {
      const Node* first = FirstOf(use);
      if (first == nullptr) continue;
      const Node* start = StartOf(use);
      for (const Node* scope = start; scope != nullptr; scope = NameScopeOf(*scope)) {
        const Node* opened = table.ScopeOf(scope);
        if (homes.contains(opened) && Enters(use, scope, start)) {
          used_[Key(first->WrittenName())].insert(opened);
        }
        if (scope->isModule()) break;
      }
    }
  }
}

bool TakenNames::IsFree(const std::string& name, const Node* home, const ScopeSet& around) const {
  if (!KeywordLike(name, true).empty()) return false;
  if (home != nullptr && IsSameName(home->WrittenName(), name)) return false;
  const auto used = used_.find(Key(name));
  if (used != used_.end() && used->second.contains(home)) return false;
  const auto declared = declared_.find(Key(name));
  if (declared == declared_.end()) return true;
  return !declared->second.contains(home) && !HaveCommon(declared->second, around);
}

std::string TakenNames::FreeName(const std::string& wanted, const Node* home,
                                 const ScopeSet& around) const {
  std::string name = wanted;
  for (std::size_t number = 2; !IsFree(name, home, around); ++number) {
    name = wanted + "_" + std::to_string(number);
  }
  return name;
}

void TakenNames::Declare(std::string_view name, const Node* home) {
  declared_[Key(name)].insert(home);
}

}  // namespace mdktoidl
