#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "scopes/name_checks.h"
#include "scopes/used_names.h"
#include "types/identifier.h"

namespace mdktoidl {
namespace {

class ScopeCheck {
 public:
  ScopeCheck(const Root& root, const DeclaredNames& names)
      : root_(root),
        names_(names),

        scopeNames_(names),
        useCheck_(root, names, scopeNames_) {}

  /// From the outside in, with a list of the scopes still to be checked.
  void Run() {
    scopes_.push_back({&root_, {}});
    for (std::size_t i = 0; i < scopes_.size(); ++i) {
      const Scope scope = std::move(scopes_[i]);
      Check(scope);
    }
  }

 private:
  /// A declaration and, of a module that is opened several times, the others. The root is the scope
  /// around all.
  struct Scope {
    const Node* first;
    std::vector<const Node*> reopened;
  };
  using OpenModules = std::unordered_map<const Node*, std::size_t>;

  void Check(const Scope& scope) {
    scopeNames_.Clear();
    OpenModules openModules;
    CheckBody(*scope.first, openModules);
    for (const Node* body : scope.reopened) CheckBody(*body, openModules);
    if (scope.first == &root_) return;
    useCheck_.Check(*scope.first);
    for (const Node* body : scope.reopened) useCheck_.Check(*body);
  }

  void CheckBody(const Node& body, OpenModules& openModules) {
    ForEachNameIn(root_, body, [&](const Node& member) {
      const Node* first = Enter(body, member);
      const bool isScope = member.Kind().scope != ScopeKind::none;
      if (isScope && names_.MayClashIn(member)) Open(member, first, openModules);
    });
  }

  /// Notes a member's own scope, together with those of the modules that it reopens.
  void Open(const Node& member, const Node* first, OpenModules& openModules) {
    // The same again is told of once; its members would all be said to clash.
    if (first != nullptr && first->Entity() == member.Entity()) return;
    const auto open = openModules.find(first);
    if (member.isModule() && open != openModules.end()) {
      scopes_[open->second].reopened.push_back(&member);
      return;
    }
    if (member.isModule()) openModules.emplace(&member, scopes_.size());
    scopes_.push_back({&member, {}});
  }

  /// Enters a member's name; returns the member that had it before.
  const Node* Enter(const Node& scope, const Node& member) {
    if (!MayClash(names_.Of(member))) return nullptr;
    const Node* first = scopeNames_.Enter(member);
    if (first != nullptr) Compare(*first, member);
    const bool isReserved = scope.Kind().scope == ScopeKind::reservesItsName;
    if (isReserved && names_.Of(member) == names_.Of(scope)) {
      member.Report(Message::nameOfScopeAround, {Describe(member), scope.Kind().word});
    }
    return first;
  }

  void Compare(const Node& first, const Node& second) {
    if (first.Entity() == second.Entity()) {
      return second.Report(Message::nameDeclaredTwice, {Describe(second)});
    }
    const bool areModules = first.isModule() && second.isModule();
    if (areModules && Unescaped(first.Name()) == Unescaped(second.Name())) return;
    const bool isEnumerators = first.isEnumerator() || second.isEnumerator();
    const bool isSameEnum = first.isEnumerator() && first.Enclosing() == second.Enclosing();
    second.Report(
        isEnumerators && !isSameEnum ? Message::nameOfEnumeratorClashes : Message::nameClashes,
        {Describe(second), Describe(first)});
  }

  const Root& root_;
  const DeclaredNames& names_;
  ScopeNames scopeNames_;
  UseCheck useCheck_;
  std::vector<Scope> scopes_;
};

}  // namespace

void CheckScopes(const Root& root, const DeclaredNames& names) { ScopeCheck(root, names).Run(); }

}  // namespace mdktoidl
