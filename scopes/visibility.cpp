#include <cstddef>
#include <unordered_set>
#include <vector>

#include "scopes/name_checks.h"
#include "tree/use.h"

namespace mdktoidl {
namespace {

/// Looks simple names up as IDL does: outward through the scopes around their user, and in each in
/// its bases.
class LookUp {
 public:
  explicit LookUp(const Root& root) : stepsLeft_(stepsPerDeclaration * root.Nodes().size()) {}

  /// True also when too much was looked through already.
  bool Finds(const Use& use) {
    const auto* scope = static_cast<const Node*>(use.used->NameScope());
    const Node* from = isInHeader(use.role) ? use.user->Enclosing() : use.user;
    for (const Node* each = from; each != nullptr; each = each->Enclosing()) {
      if (IsReopened(*each, *scope)) return true;
      if (each->Kind().heredity == Inheritance::inherits && Inherits(*each, *scope)) return true;
    }
    return IsExhausted();
  }

  bool IsExhausted() const { return stepsLeft_ == 0; }

 private:
  static constexpr std::size_t stepsPerDeclaration = 64;

  static bool IsReopened(const Node& one, const Node& other) {
    return one.isModule() && other.isModule() && one.Name() == other.Name() &&
           one.ScopedName("::") == other.ScopedName("::");
  }

  bool Inherits(const Node& heir, const Node& base) {
    std::vector<const Node*> queue = {&heir};
    std::unordered_set<const Node*> passed = {&heir};
    for (std::size_t i = 0; i < queue.size(); ++i) {
      for (const Use& use : queue[i]->Used()) {
        if (use.role != UseRole::base && use.role != UseRole::supports) continue;
        if (use.used == &base) return true;
        if (IsExhausted()) return true;
        --stepsLeft_;
        if (passed.insert(use.used).second) queue.push_back(use.used);
      }
    }
    return false;
  }

  std::size_t stepsLeft_;
};

}  // namespace

// The facets of a segment are looked up in its component, and need no scope.
void CheckVisibility(const Root& root) {
  LookUp lookUp(root);
  for (const Use& use : root.AllUses()) {
    if (use.isInScope || use.spelling != Spelling::simple || use.role == UseRole::provides)
      continue;
    if (!use.user->isDeclared() || lookUp.Finds(use)) continue;
    (*use.user).Report(Message::nameNotVisible, {Describe(*use.user), Describe(*use.used)});
  }
  if (lookUp.IsExhausted()) root.Report(Message::namesInheritedTooWidely, {});
}

}  // namespace mdktoidl
