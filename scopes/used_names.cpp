#include "scopes/used_names.h"

#include "tree/unions.h"
#include "types/identifier.h"

namespace mdktoidl {
namespace {

/// Whether the name found is that of what is used, or one of the enumerators that it declares.
bool IsItself(const Node& found, const Node& used) {
  return (found.isEnumerator() && found.Enclosing() == &used) || found.Entity() == used.Entity();
}

/// Whether two declarations at the top open the same module.
bool IsReopened(const Node& one, const Node& other) {
  const auto isTopModule = [](const Node& node) {
    return node.isModule() && node.Enclosing() == nullptr;
  };
  return isTopModule(one) && isTopModule(other) && Unescaped(one.Name()) == Unescaped(other.Name());
}

}  // namespace

void UseCheck::Check(const Node& scope) {
  scope_ = &scope;
  if (scope.isModule()) {
    return ForEachChild(root_, scope, [&](const Node& member) {
      if (member.Kind().scope == ScopeKind::none) CheckUses(member);
    });
  }
  for (std::uint32_t user = scope.Serial(); user <= scope.LastSerial(); ++user) {
    CheckUses(*root_.Nodes()[user]);
  }
}

void UseCheck::CheckUses(const Node& user) {
  if (!user.isDeclared()) return;
  for (const Use& use : user.Used()) {
    const bool isOutside = isInHeader(use.role) || (use.isBeforeName && &user == scope_);
    // The facets of a segment are looked up in its component.
    const bool isLookedUp = use.spelling != Spelling::none && use.role != UseRole::provides;
    if (isLookedUp && !isOutside) CheckUse(use, user);
  }
}

void UseCheck::CheckUse(const Use& use, const Node& user) {
  const Node& outermost = Outermost(*use.used);
  if (names_.Of(*use.used) == kUniqueName && names_.Of(outermost) == kUniqueName) return;
  if (use.spelling == Spelling::simple) {
    // A label that the model gives stands for its enumeration; a simple union takes enumerators.
    const bool isGiven =
        use.role == UseRole::label && !static_cast<const Union*>(user.Enclosing())->isSimpleUnion();
    const Node& meant = isGiven ? *use.used->Enclosing() : *use.used;
    return CheckHit(scopeNames_.FindNameOf(*use.used), meant, user, use.role);
  }
  CheckScopesAround(outermost);
  CheckHit(scopeNames_.FindNameOf(outermost), outermost, user, use.role);
}

/// A scope hides what has its own name from all inside it.
void UseCheck::CheckScopesAround(const Node& used) {
  for (const Node* at = FindAround(used, scope_); at != nullptr; at = FindAround(used, at)) {
    Report(*at, used);
  }
}

/// A scope, or the innermost around it, that hides what is used and wasn't told of yet; null when
/// none does.
const Node* UseCheck::FindAround(const Node& used, const Node* scope) const {
  if (names_.Of(used) == kUniqueName) return nullptr;
  const auto hides = [&](const Node& at) {
    return names_.Of(at) == names_.Of(used) && !isReported_[at.Serial()] && !IsItself(at, used) &&
           !IsReopened(at, used);
  };
  while (scope != nullptr && !hides(*scope)) scope = scope->Enclosing();
  return scope;
}

/// Checks what in the scope has the name of something used; null when nothing has.
void UseCheck::CheckHit(const Node* hit, const Node& used, const Node& user, UseRole role) {
  // What is named as the scope itself is told of elsewhere.
  if (hit == nullptr || &used == scope_ || isReported_[hit->Serial()] || IsItself(*hit, used)) {
    return;
  }
  // An exception is used in the operation that raises it: for the interface around it only what is
  // declared before gets into its way.
  const bool isBehind = hit->Serial() > user.Serial();
  if (role == UseRole::raises && &user != scope_ && isBehind) return;
  Report(*hit, used);
}

void UseCheck::Report(const Node& at, const Node& used) {
  isReported_[at.Serial()] = true;
  at.Report(Message::nameClashesWithUsed, {Describe(at), Describe(used), Describe(*scope_)});
}

}  // namespace mdktoidl
