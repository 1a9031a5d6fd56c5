#include "command/use_check.h"

#include <list>
#include <string>

#include "command/model_words.h"

namespace command {
namespace {

using model::Element;
using Kind = DeclarationKind;

/// Whether what a module's member names counts as used in the module.
bool IsUsedInModule(Kind member) {
  return member == Kind::kConstant || member == Kind::kTypedef || member == Kind::kSequence ||
         member == Kind::kBoxedValue;
}

std::string_view LastPart(std::string_view name) {
  const auto separator = name.rfind("::");
  return separator == name.npos ? name : name.substr(separator + 2);
}

bool IsTagTrue(Element& element, const std::string& expression) {
  mdk::IMdeEntity* value = element.EvalExpression(expression, 0);
  return value != nullptr && value->GetValue("Name", 0) == "true";
}

/// The labels that a case is given, as texts.
std::vector<std::string> LabelsOf(Element& unionCase) {
  std::vector<std::string> labels;
  mdk::IMdeEntity* value = unionCase.EvalExpression("'case' (. label .)", 0);
  if (value == nullptr) return labels;
  if (!value->IsKindOf("ListExpr")) return {value->GetValue("ValueString", 0)};
  std::list<mdk::IMdeEntity*> items;
  value->GetEntities("Expression", items);
  for (mdk::IMdeEntity* item : items) labels.push_back(item->GetValue("Value", 0));
  return labels;
}

}  // namespace

void UseCheck::Check(DeclarationIndex scope) {
  scope_ = scope;
  const Declaration& declaration = declarations_[scope];
  if (declaration.kind == Kind::kModule) {
    declarations_.ForEachChild(scope, [&](DeclarationIndex member) {
      if (IsUsedInModule(declarations_[member].kind)) CheckUses(member);
    });
    return;
  }
  for (DeclarationIndex user = scope; user < declaration.end; ++user) CheckUses(user);
}

void UseCheck::CheckUses(DeclarationIndex user) {
  for (const Use& use : uses_.Of(user)) CheckUse(use, user);
  if (declarations_[user].kind == Kind::kUnion) CheckLabels(user);
}

void UseCheck::CheckUse(const Use& use, DeclarationIndex user) {
  if (use.place == UsePlace::kBase || use.place == UsePlace::kHeader) return;
  const DeclarationIndex outermost = declarations_.Outermost(use.used);
  if (names_.Of(use.used) == kUniqueName && names_.Of(outermost) == kUniqueName) return;
  const bool isRaised = use.place == UsePlace::kRaised;
  // The type of an operation's result is used outside the operation.
  const bool isOperation = declarations_[user].kind == Kind::kOperation;
  if (isOperation && user == scope_ && !isRaised) return;
  if (isRaised || IsVisible(use.used, user)) {
    if (use.place != UsePlace::kInTemplate || !IsHidden(use.used)) {
      return CheckHit(scopeNames_.FindNameOf(use.used), use.used, user, use.place);
    }
  }
  CheckScopesAround(outermost);
  CheckHit(scopeNames_.FindNameOf(outermost), outermost, user, use.place);
}

/// A scope hides what has its own name from all inside it.
void UseCheck::CheckScopesAround(DeclarationIndex used) {
  for (DeclarationIndex at = FindAround(used, scope_); at != kNoDeclaration;
       at = FindAround(used, at)) {
    isReported_[at] = true;
    findings_.Warn("use-clash", at,
                   declarations_.Describe(at) + " clashes with " + declarations_.Describe(used) +
                       ", which is used in " + declarations_.Describe(scope_));
  }
}

/// A scope, or the innermost around it, that hides what is used and wasn't told of yet;
/// `kNoDeclaration` when none does.
DeclarationIndex UseCheck::FindAround(DeclarationIndex used, DeclarationIndex scope) const {
  if (names_.Of(used) == kUniqueName) return kNoDeclaration;
  const auto hides = [&](DeclarationIndex at) {
    return names_.Of(at) == names_.Of(used) && !isReported_[at] && !IsItself(at, used) &&
           !IsReopened(at, used);
  };
  while (scope != kNoDeclaration && !hides(scope)) scope = declarations_[scope].parent;
  return scope;
}

// Only labels that name enumerators are looked at: numbers and characters are no names.
void UseCheck::CheckLabels(DeclarationIndex unionDeclaration) {
  const Element* discriminator = DiscriminatorOf(*declarations_[unionDeclaration].element);
  const DeclarationIndex type = discriminator == nullptr
                                    ? kNoDeclaration
                                    : declarations_.Find(discriminator->Entity(words::type));
  if (type == kNoDeclaration || declarations_[type].kind != Kind::kEnum) return;
  if (!IsVisible(type, unionDeclaration)) return;  // then they are spelled like the type
  const bool isSimple =
      IsTagTrue(*declarations_[unionDeclaration].element, "CORBAUnion (. isSimple .)");
  DeclarationIndex next = type + 1;
  declarations_.ForEachChild(unionDeclaration, [&](DeclarationIndex member) {
    Element& element = *declarations_[member].element;
    if (!isSimple) {
      for (const std::string& label : LabelsOf(element)) {
        CheckHit(FindLabel(LastPart(label)), type, member, UsePlace::kPlain);
      }
    } else if (next < declarations_[type].end && !IsTagTrue(element, "'case' (. isDefault .)")) {
      CheckHit(scopeNames_.FindNameOf(next), next, member, UsePlace::kPlain);
      ++next;
    }
  });
}

/// The declaration in the scope that has the name of a label; `kNoDeclaration` when none has. The
/// names of a scope are made to a table when the first label in it is met.
DeclarationIndex UseCheck::FindLabel(std::string_view label) {
  if (labelled_.scope != scope_) {
    labelled_ = {scope_, {}};
    declarations_.ForEachNameIn(scope_, [&](DeclarationIndex member) {
      const std::string_view name = declarations_.Name(member);
      if (!name.empty()) labelled_.members.try_emplace(name, member);
    });
  }
  const auto found = label.empty() ? labelled_.members.end() : labelled_.members.find(label);
  return found == labelled_.members.end() ? kNoDeclaration : found->second;
}

/// Checks what in the scope has the name of something used; `kNoDeclaration` when nothing has.
void UseCheck::CheckHit(DeclarationIndex hit, DeclarationIndex used, DeclarationIndex user,
                        UsePlace place) {
  // What is named as the scope itself is told of elsewhere.
  if (hit == kNoDeclaration || used == scope_ || isReported_[hit] || IsItself(hit, used)) return;
  // An exception is used in the operation that raises it: for the interface around it only what is
  // declared before gets into its way.
  if (place == UsePlace::kRaised && user != scope_ && hit > user) return;
  isReported_[hit] = true;
  findings_.Warn("use-clash", hit,
                 declarations_.Describe(hit) + " clashes with " + declarations_.Describe(used) +
                     ", which is used in " + declarations_.Describe(scope_));
}

/// Whether the agent spells a name in a template past another in this scope.
bool UseCheck::IsHidden(DeclarationIndex used) const {
  const Kind kind = declarations_[scope_].kind;
  const bool hides = kind == Kind::kModule || InheritsMembers(kind);
  const DeclarationIndex hit = scopeNames_.FindNameOf(used);
  return hides && hit != kNoDeclaration && hit != used &&
         declarations_.Name(hit) == declarations_.Name(used);
}

/// Whether the name found is that of what is used, or one of the enumerators that it declares.
bool UseCheck::IsItself(DeclarationIndex found, DeclarationIndex used) const {
  const Declaration& declaration = declarations_[found];
  const bool isEnumerator = declaration.kind == Kind::kEnumerator && declaration.parent == used;
  return isEnumerator || declaration.element == declarations_[used].element;
}

/// Whether two declarations at the top open the same module.
bool UseCheck::IsReopened(DeclarationIndex one, DeclarationIndex other) const {
  const auto isTopModule = [this](DeclarationIndex index) {
    const Declaration& declaration = declarations_[index];
    return declaration.kind == Kind::kModule && declaration.parent == kNoDeclaration;
  };
  return isTopModule(one) && isTopModule(other) &&
         Unescaped(declarations_.Name(one)) == Unescaped(declarations_.Name(other));
}

/// Whether the agent writes a declaration by its simple name: it compares the names of scopes as
/// texts, so a module that is opened twice counts as one.
bool UseCheck::IsVisible(DeclarationIndex used, DeclarationIndex user) const {
  const DeclarationIndex scope = declarations_.ScopeOf(used);
  if (declarations_.IsInside(user, scope)) return true;
  // The texts are worth making only where something gets into the way of either spelling.
  const DeclarationIndex outermost = declarations_.Outermost(used);
  if (scopeNames_.FindNameOf(used) == kNoDeclaration &&
      scopeNames_.FindNameOf(outermost) == kNoDeclaration &&
      FindAround(outermost, scope_) == kNoDeclaration) {
    return false;
  }
  return declarations_.ScopedName(user).starts_with(declarations_.ScopedName(scope));
}

}  // namespace command
