#include "command/scope_check.h"

#include <unordered_map>
#include <vector>

#include "command/idl_identifier.h"
#include "command/scope_names.h"
#include "command/use_check.h"

namespace command {
namespace {

using Kind = DeclarationKind;

/// Whether IDL forbids the name of the scope for what is declared directly in it.
bool KeepsItsName(Kind scope) {
  return scope != Kind::kOperation && scope != Kind::kFactory && scope != Kind::kComposition;
}

bool IsScope(Kind kind) {
  switch (kind) {
    case Kind::kModule:
    case Kind::kComposition:
    case Kind::kStruct:
    case Kind::kUnion:
    case Kind::kException:
    case Kind::kOperation:
    case Kind::kFactory:
      return true;
    default:
      return InheritsMembers(kind);
  }
}

class ScopeCheck {
 public:
  ScopeCheck(const Declarations& declarations, const DeclaredNames& names,
             const DeclarationUses& uses, NameFindings& findings)
      : declarations_(declarations),
        names_(names),
        findings_(findings),
        scopeNames_(names),
        useCheck_(declarations, names, scopeNames_, uses, findings) {}

  /// From the outside in, with a list of the scopes still to be checked.
  void Run() {
    scopes_.push_back({kNoDeclaration, {}});
    for (std::size_t i = 0; i < scopes_.size(); ++i) {
      const Scope scope = std::move(scopes_[i]);
      Check(scope);
    }
  }

 private:
  /// A declaration and, of a module that is opened several times, the others. `kNoDeclaration` is
  /// the scope around all.
  struct Scope {
    DeclarationIndex first;
    std::vector<DeclarationIndex> reopened;
  };
  using OpenModules = std::unordered_map<DeclarationIndex, std::size_t>;

  void Check(const Scope& scope) {
    scopeNames_.Clear();
    OpenModules openModules;
    CheckBody(scope.first, openModules);
    for (const DeclarationIndex body : scope.reopened) CheckBody(body, openModules);
    if (scope.first == kNoDeclaration) return;
    useCheck_.Check(scope.first);
    for (const DeclarationIndex body : scope.reopened) useCheck_.Check(body);
  }

  void CheckBody(DeclarationIndex body, OpenModules& openModules) {
    declarations_.ForEachNameIn(
        body, [&](DeclarationIndex member) { Open(member, Enter(body, member), openModules); });
  }

  /// Notes a member's own scope, together with those of the modules that it reopens.
  void Open(DeclarationIndex member, DeclarationIndex first, OpenModules& openModules) {
    const Kind kind = declarations_[member].kind;
    if (!IsScope(kind)) return;
    if (first != kNoDeclaration && declarations_[first].element == declarations_[member].element) {
      return;  // the same again; its members would all be said to clash
    }
    const auto open = openModules.find(first);
    if (kind == Kind::kModule && open != openModules.end()) {
      scopes_[open->second].reopened.push_back(member);
      return;
    }
    if (kind == Kind::kModule) openModules.emplace(member, scopes_.size());
    scopes_.push_back({member, {}});
  }

  /// Enters a member's name; returns the member that had it before.
  DeclarationIndex Enter(DeclarationIndex scope, DeclarationIndex member) {
    if (!MayClash(names_.Of(member))) return kNoDeclaration;
    const DeclarationIndex first = scopeNames_.Enter(member);
    if (first != kNoDeclaration) Compare(first, member);
    if (scope == kNoDeclaration || names_.Of(member) != names_.Of(scope)) return first;
    if (KeepsItsName(declarations_[scope].kind)) {
      findings_.Warn("name-hides-scope", member,
                     declarations_.Describe(member) + " has the name of the " +
                         std::string(WordFor(declarations_[scope].kind)) + " around it");
    }
    return first;
  }

  void Compare(DeclarationIndex first, DeclarationIndex second) {
    const Declaration& one = declarations_[first];
    const Declaration& other = declarations_[second];
    if (one.element == other.element) {
      findings_.Warn("name-clash", second, declarations_.Describe(second) + " is exported twice");
      return;
    }
    const bool areModules = one.kind == Kind::kModule && other.kind == Kind::kModule;
    if (areModules &&
        Unescaped(declarations_.Name(first)) == Unescaped(declarations_.Name(second))) {
      return;
    }
    const bool isEnumerators = one.kind == Kind::kEnumerator || other.kind == Kind::kEnumerator;
    const bool isSameEnum = one.kind == other.kind && one.parent == other.parent;
    findings_.Warn(
        isEnumerators && !isSameEnum ? "enumerator-clash" : "name-clash", second,
        declarations_.Describe(second) + " clashes with " + declarations_.Describe(first));
  }

  const Declarations& declarations_;
  const DeclaredNames& names_;
  NameFindings& findings_;
  ScopeNames scopeNames_;
  UseCheck useCheck_;
  std::vector<Scope> scopes_;
};

}  // namespace

void CheckScopes(const Declarations& declarations, const DeclaredNames& names,
                 const DeclarationUses& uses, NameFindings& findings) {
  ScopeCheck(declarations, names, uses, findings).Run();
}

}  // namespace command
