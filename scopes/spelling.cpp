#include "scopes/spelling.h"

#include <unordered_set>

#include "scopes/declarations.h"

namespace mdktoidl {
namespace {

/// The facets of a segment are looked up in its component, and need no scope.
bool isLookedUp(const Use& use) {
  return use.spelling != Spelling::none && use.role != UseRole::provides && use.user->isDeclared();
}

class Speller {
 public:
  Speller(LookUp& lookUp, bool mayRepair) : lookUp_(lookUp), mayRepair_(mayRepair) {}

  void Spell(Use& use) {
    const Meaning meaning = lookUp_.Of(use, use.spelling);
    if (meaning.kind == Meaning::Kind::right) return;
    if (!mayRepair_) return Report(use, meaning);
    Repair(use);
  }

 private:
  // Spelled from the top it always means what it should.
  void Repair(Use& use) {
    use.name = nullptr;
    for (const Spelling next : {use.spelling, Spelling::scoped, Spelling::absolute}) {
      use.spelling = next;
      if (lookUp_.Of(use, next).kind == Meaning::Kind::right) break;
    }
    use.user->Report(Message::nameRespelled,
                     {Describe(*use.user), Describe(*use.used), TextOf(use)});
  }

  void Report(const Use& use, const Meaning& meaning) {
    const Node& user = *use.user;
    if (meaning.kind == Meaning::Kind::nothing) {
      return user.Report(Message::nameNotVisible, {Describe(user), Describe(*use.used)});
    }
    const Node& hit = *meaning.hit;
    if (meaning.isInherited) {
      return user.Report(Message::nameHiddenByInherited,
                         {Describe(user), Describe(*use.used), Describe(hit)});
    }
    // What is named as the scope around it is told of as such.
    if (meaning.first == meaning.scope) return;
    const bool isAround = &hit != &user && hit.Encloses(user);
    if (meaning.kind == Meaning::Kind::hidden && !isAround) {
      return user.Report(Message::nameMeansOther,
                         {Describe(user), Describe(*use.used), Describe(hit)});
    }
    if (!reported_.insert(&hit).second) return;
    hit.Report(Message::nameClashesWithUsed, {Describe(hit), Describe(*meaning.first),
                                              Describe(isAround ? hit : *meaning.scope)});
  }

  LookUp& lookUp_;
  bool mayRepair_;
  std::unordered_set<const Node*> reported_;  // what was told to be in the way
};

}  // namespace

void SpellNames(const Root& root, LookUp& lookUp, bool mayRepair) {
  Speller speller(lookUp, mayRepair);
  for (Node* node : root.Nodes()) {
    for (Use& use : node->Used()) {
      if (isLookedUp(use)) speller.Spell(use);
    }
  }
}

}  // namespace mdktoidl
