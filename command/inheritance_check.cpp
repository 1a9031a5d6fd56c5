#include "command/inheritance_check.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "command/declaration_uses.h"

namespace command {
namespace {

using Kind = DeclarationKind;

/// Each edge from a base to what inherits it, by base.
struct Edge {
  DeclarationIndex base;
  DeclarationIndex derived;
  friend auto operator<=>(const Edge&, const Edge&) = default;
};

/// What can inherit. None of it stands inside another.
std::vector<DeclarationIndex> OwnersIn(const Declarations& declarations) {
  std::vector<DeclarationIndex> owners;
  for (DeclarationIndex index = 0; index < declarations.Size(); ++index) {
    if (InheritsMembers(declarations[index].kind)) owners.push_back(index);
  }
  return owners;
}

std::vector<Edge> EdgesOf(std::span<const DeclarationIndex> owners,
                          const Declarations& declarations, const DeclarationUses& uses) {
  std::vector<Edge> edges;
  for (const DeclarationIndex owner : owners) {
    for (const Use& use : uses.Of(owner)) {
      const bool isBase = use.place == UsePlace::kBase;
      if (isBase && InheritsMembers(declarations[use.used].kind))
        edges.push_back({use.used, owner});
    }
  }
  std::ranges::sort(edges);
  return edges;
}

/// How a name stands in an interface, or in what else inherits.
enum class Role { kInherited, kOwn, kUsed };

struct Member {
  NameNumber name;
  DeclarationIndex owner;
  DeclarationIndex declaration;
  Role role;
  DeclarationIndex user = kNoDeclaration;  // what uses it, if it is used
};

bool IsInherited(Kind kind) {
  return kind == Kind::kAttribute || kind == Kind::kOperation || kind == Kind::kState ||
         kind == Kind::kPort;
}

/// Collects all that stands in what can inherit, and all that it uses.
class MemberCollector {
 public:
  MemberCollector(const Declarations& declarations, const DeclaredNames& names)
      : declarations_(declarations), names_(names), counts_(names.Size()) {}

  /// An enumerator counts as a member where its enumeration does.
  void AddMembers(DeclarationIndex owner) {
    declarations_.ForEachNameIn(owner, [&](DeclarationIndex member) {
      const Role role = IsInherited(declarations_[member].kind) ? Role::kInherited : Role::kOwn;
      Add({names_.Of(member), owner, member, role});
    });
  }

  /// What an heir uses, by the name that it is written with: the outermost where it isn't visible.
  void AddUses(DeclarationIndex owner, const DeclarationUses& uses) {
    for (DeclarationIndex user = owner; user < declarations_[owner].end; ++user) {
      for (const Use& use : uses.Of(user)) {
        const bool isInBody = use.place != UsePlace::kBase && use.place != UsePlace::kHeader;
        if (!isInBody || declarations_.IsInside(use.used, owner)) continue;
        const bool isVisible = use.place == UsePlace::kRaised ||
                               declarations_.IsInside(owner, declarations_.ScopeOf(use.used));
        const auto written = isVisible ? use.used : declarations_.Outermost(use.used);
        Add({names_.Of(written), owner, use.used, Role::kUsed, user});
      }
    }
  }

  /// By name, those of one name in the order added. What is alone of its name is left out: nothing
  /// clashes with it.
  std::vector<Member> Sorted() && {
    std::erase_if(members_, [this](const Member& member) { return counts_[member.name] == 1; });
    std::ranges::stable_sort(members_, {}, &Member::name);
    return std::move(members_);
  }

 private:
  void Add(const Member& member) {
    if (!MayClash(member.name)) return;
    ++counts_[member.name];
    members_.push_back(member);
  }

  const Declarations& declarations_;
  const DeclaredNames& names_;
  std::vector<Member> members_;
  std::vector<std::uint32_t> counts_;  // of members, by name
};

std::vector<Member> MembersOf(std::span<const DeclarationIndex> owners,
                              const Declarations& declarations, const DeclaredNames& names,
                              const DeclarationUses& uses, std::span<const Edge> edges) {
  std::vector<bool> inherits(declarations.Size());
  for (const Edge& edge : edges) inherits[edge.derived] = true;
  MemberCollector collector(declarations, names);
  for (const DeclarationIndex owner : owners) collector.AddMembers(owner);
  for (const DeclarationIndex owner : owners) {
    if (inherits[owner]) collector.AddUses(owner, uses);
  }
  return std::move(collector).Sorted();
}

/// Follows the members of one name from where they are declared to all that inherit them. What
/// inherits is entered once for each name, so neither diamonds nor circles make it long.
class NameInheritance {
 public:
  NameInheritance(const Declarations& declarations, std::span<const Edge> edges,
                  NameFindings& findings)
      : declarations_(declarations), edges_(edges), findings_(findings) {}

  /// Returns how much there was to do.
  std::size_t Check(std::span<const Member> members) {
    inherited_.clear();
    own_.clear();
    used_.clear();
    reported_.clear();
    queue_.clear();
    for (const Member& member : members) {
      if (member.role == Role::kUsed) {
        used_.try_emplace(member.owner, &member);
        continue;
      }
      own_.try_emplace(member.owner, member.declaration);
      if (member.role != Role::kInherited) continue;
      if (inherited_.try_emplace(member.owner, member.declaration).second) {
        queue_.push_back(member.owner);
      }
    }
    std::size_t steps = 0;
    for (std::size_t i = 0; i < queue_.size(); ++i) steps += PassOn(queue_[i]);
    return steps;
  }

 private:
  std::size_t PassOn(DeclarationIndex base) {
    std::size_t steps = 1;
    auto edge = std::ranges::lower_bound(edges_, base, {}, &Edge::base);
    for (; edge != edges_.end() && edge->base == base; ++edge, ++steps) {
      Receive(edge->derived, inherited_[base]);
    }
    return steps;
  }

  void Receive(DeclarationIndex heir, DeclarationIndex member) {
    const auto [entry, isNew] = inherited_.try_emplace(heir, member);
    if (isNew) queue_.push_back(heir);
    CheckUse(heir, member);
    const auto own = own_.find(heir);
    const bool isOwn = own != own_.end() && own->second != member;
    const bool isOther = entry->second != member;
    if (!isOwn && !isOther) return;
    if (!reported_.insert(heir).second) return;
    if (isOwn) {
      findings_.Warn("name-clash", own->second,
                     declarations_.Describe(own->second) + " clashes with the inherited " +
                         declarations_.Describe(member));
    } else {
      findings_.Warn("name-clash", heir,
                     declarations_.Describe(heir) + " inherits both " +
                         declarations_.Describe(std::min(entry->second, member)) + " and " +
                         declarations_.Describe(std::max(entry->second, member)));
    }
  }

  void CheckUse(DeclarationIndex heir, DeclarationIndex member) {
    const auto used = used_.find(heir);
    if (used == used_.end() || used->second->declaration == member) return;
    findings_.Warn("use-clash", used->second->user,
                   declarations_.Describe(used->second->user) + " uses " +
                       declarations_.Describe(used->second->declaration) +
                       ", which the inherited " + declarations_.Describe(member) + " hides");
    used_.erase(used);
  }

  const Declarations& declarations_;
  std::span<const Edge> edges_;
  NameFindings& findings_;
  std::unordered_map<DeclarationIndex, DeclarationIndex> own_;        // by owner, the first
  std::unordered_map<DeclarationIndex, DeclarationIndex> inherited_;  // what each passes on
  std::unordered_map<DeclarationIndex, const Member*> used_;          // by owner, the first
  std::unordered_set<DeclarationIndex> reported_;
  std::vector<DeclarationIndex> queue_;
};

/// Whether members of one name can clash: types can't among themselves, since an heir may declare
/// them anew.
bool MayClash(std::span<const Member> members) {
  return std::ranges::any_of(members,
                             [](const Member& member) { return member.role == Role::kInherited; });
}

}  // namespace

// Names that only one interface declares, which is most of them, cost nothing further. What many
// declare is followed as far as that costs no more than a fixed multiple of the model's size.
void CheckInheritance(const Declarations& declarations, const DeclaredNames& names,
                      const DeclarationUses& uses, NameFindings& findings) {
  constexpr std::size_t stepsPerDeclaration = 64;
  const std::vector<DeclarationIndex> owners = OwnersIn(declarations);
  const std::vector<Edge> edges = EdgesOf(owners, declarations, uses);
  if (edges.empty()) return;
  const std::vector<Member> members = MembersOf(owners, declarations, names, uses, edges);
  NameInheritance inheritance(declarations, edges, findings);
  std::size_t steps = 0;
  for (auto first = members.begin(); first != members.end();) {
    const auto last = std::find_if(
        first, members.end(), [&](const Member& member) { return member.name != first->name; });
    const std::span<const Member> ofOneName(first, last);
    if (MayClash(ofOneName)) steps += inheritance.Check(ofOneName);
    if (steps > stepsPerDeclaration * (declarations.Size() + edges.size())) {
      findings.Warn("name-clash", kNoDeclaration,
                    "so much is inherited so widely that not every inherited name was checked");
      return;
    }
    first = last;
  }
}

}  // namespace command
