#include <algorithm>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "scopes/clashes.h"
#include "scopes/scope_table.h"

namespace mdktoidl {
namespace {

bool IsHeir(const Node& node) { return node.Kind().inheritance == Inheritance::inherits; }

/// An edge from a base to what inherits it.
struct Edge {
  const Node* base;
  const Node* heir;
};

/// What can inherit. None of it stands inside another.
std::vector<const Node*> HeirsIn(const Root& root) {
  std::vector<const Node*> heirs;
  for (const Node* node : root.Nodes()) {
    if (IsHeir(*node) && node->isDeclared()) heirs.push_back(node);
  }
  return heirs;
}

/// By base, in the order of creation.
std::vector<Edge> EdgesOf(std::span<const Node* const> heirs) {
  std::vector<Edge> edges;
  for (const Node* heir : heirs) {
    for (const Use& use : heir->Used()) {
      if (isBase(use.role) && IsHeir(*use.used)) edges.push_back({use.used, heir});
    }
  }
  std::ranges::sort(edges, {}, [](const Edge& edge) {
    return std::pair(edge.base->Serial(), edge.heir->Serial());
  });
  return edges;
}

/// How a name stands in an interface, or in what else inherits.
enum class Role { inherited, own };

struct Member {
  NameNumber name;
  const Node* owner;
  const Node* declaration;
  Role role;
};

/// Collects all that stands in what can inherit.
class MemberCollector {
 public:
  MemberCollector(const Root& root, const DeclaredNames& names)
      : root_(root), names_(names), counts_(names.Size()) {}

  /// An enumerator counts as a member where its enumeration does.
  void AddMembers(const Node& owner) {
    ForEachNameIn(root_, owner, [&](const Node& member) {
      const bool isInherited = member.Kind().inheritance == Inheritance::inherited;
      Add({names_.Of(member), &owner, &member, isInherited ? Role::inherited : Role::own});
    });
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
    if (!mdktoidl::MayClash(member.name)) return;
    ++counts_[member.name];
    members_.push_back(member);
  }

  const Root& root_;
  const DeclaredNames& names_;
  std::vector<Member> members_;
  std::vector<std::uint32_t> counts_;  // of members, by name
};

std::vector<Member> MembersOf(const Root& root, std::span<const Node* const> heirs,
                              const DeclaredNames& names) {
  MemberCollector collector(root, names);
  for (const Node* owner : heirs) {
    if (names.MayClashIn(*owner)) collector.AddMembers(*owner);
  }
  return std::move(collector).Sorted();
}

/// Follows the members of one name from where they are declared to all that inherit them. What
/// inherits is entered once for each name, so neither diamonds nor circles make it long.
class NameInheritance {
 public:
  explicit NameInheritance(std::span<const Edge> edges) : edges_(edges) {}

  /// Returns how much there was to do.
  std::size_t Check(std::span<const Member> members) {
    // Emptying a table costs as much as the largest name had in it, a new one nothing.
    inherited_ = {};
    own_ = {};
    reported_ = {};
    queue_.clear();
    for (const Member& member : members) {
      own_.try_emplace(member.owner, member.declaration);
      if (member.role != Role::inherited) continue;
      if (inherited_.try_emplace(member.owner, member.declaration).second) {
        queue_.push_back(member.owner);
      }
    }
    std::size_t steps = 0;
    for (std::size_t i = 0; i < queue_.size(); ++i) steps += PassOn(*queue_[i]);
    return steps;
  }

 private:
  std::size_t PassOn(const Node& base) {
    const auto serialOf = [](const Edge& edge) { return edge.base->Serial(); };
    std::size_t steps = 1;
    auto edge = std::ranges::lower_bound(edges_, base.Serial(), {}, serialOf);
    for (; edge != edges_.end() && edge->base == &base; ++edge, ++steps) {
      Receive(*edge->heir, *inherited_[&base]);
    }
    return steps;
  }

  void Receive(const Node& heir, const Node& member) {
    const auto [entry, isNew] = inherited_.try_emplace(&heir, &member);
    if (isNew) queue_.push_back(&heir);
    const auto own = own_.find(&heir);
    const bool isOwn = own != own_.end() && own->second != &member;
    const Node& other = *entry->second;
    if ((!isOwn && &other == &member) || !reported_.insert(&heir).second) return;
    if (isOwn) {
      own->second->Report(Message::nameClashesWithInherited,
                          {Describe(*own->second), Describe(member)});
    } else {
      const bool isEarlier = other.Serial() < member.Serial();
      heir.Report(Message::nameInheritedTwice,
                  {Describe(heir), Describe(isEarlier ? other : member),
                   Describe(isEarlier ? member : other)});
    }
  }

  std::span<const Edge> edges_;
  // Looked up only, never walked through: their order means nothing.
  std::unordered_map<const Node*, const Node*> own_;        // by owner, the first
  std::unordered_map<const Node*, const Node*> inherited_;  // what each passes on
  std::unordered_set<const Node*> reported_;
  std::vector<const Node*> queue_;
};

/// Whether members of one name can clash: types can't among themselves, since an heir may declare
/// them anew.
bool MayClash(std::span<const Member> members) {
  return std::ranges::any_of(members,
                             [](const Member& member) { return member.role == Role::inherited; });
}

}  // namespace

// Names that only one interface declares, which is most of them, cost nothing further. What many
// declare is followed as far as that costs no more than a fixed multiple of the model's size.
void CheckInheritedNames(const Root& root, const DeclaredNames& names) {
  constexpr std::size_t stepsPerDeclaration = 64;
  const std::vector<const Node*> heirs = HeirsIn(root);
  const std::vector<Edge> edges = EdgesOf(heirs);
  if (edges.empty()) return;
  const std::vector<Member> members = MembersOf(root, heirs, names);
  NameInheritance inheritance(edges);
  std::size_t steps = 0;
  for (auto first = members.begin(); first != members.end();) {
    const auto last = std::find_if(
        first, members.end(), [&](const Member& member) { return member.name != first->name; });
    const std::span<const Member> ofOneName(first, last);
    if (MayClash(ofOneName)) steps += inheritance.Check(ofOneName);
    if (steps > stepsPerDeclaration * (root.Nodes().size() + edges.size())) {
      return root.Report(Message::namesInheritedTooWidely, {});
    }
    first = last;
  }
}

}  // namespace mdktoidl
