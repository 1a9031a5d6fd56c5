#include "tree/arrangement.h"

#include <algorithm>
#include <functional>
#include <map>
#include <queue>
#include <set>
#include <unordered_map>
#include <utility>

#include "options/options.h"
#include "tree/circles.h"
#include "tree/file_frames.h"
#include "tree/places.h"
#include "tree/precedence.h"

namespace mdktoidl {

namespace {

/// Things of one scope, numbered, and which of them must stand behind which.
struct Related {
  std::vector<const Node*> things;
  std::vector<Edge> edges;
};

/// Edges that are hard, and the others that are on no circle of both.
std::vector<Edge> EdgesToKeep(std::size_t size, std::vector<Edge> edges) {
  SortEdges(edges);
  const Ordering ordering = OrderByDependencies(GraphOf(size, edges));
  std::erase_if(edges, [&ordering](const Edge& edge) {
    return !edge.isHard && ordering.component[edge.from] == ordering.component[edge.to];
  });
  return edges;
}

/// Orders what stands in several modules: what must stand before comes before, and as long as there
/// is anything else to write in a module it isn't left.
class ModuleWalk {
 public:
  explicit ModuleWalk(const Related& related)
      : things_(related.things), waiting_(things_.size()), behind_(things_.size()) {
    for (const Edge& edge : EdgesToKeep(things_.size(), related.edges)) {
      behind_[edge.to].push_back(edge.from);
      ++waiting_[edge.from];
    }
  }

  std::vector<const Node*> Run() {
    for (std::size_t thing = 0; thing < things_.size(); ++thing) {
      if (waiting_[thing] == 0) MakeReady(thing);
    }
    while (!ready_.empty()) {
      const Node* module = things_[ready_.top()]->Enclosing();
      ready_.pop();
      Stay(module);
    }
    return std::move(order_);
  }

 private:
  using Queue = std::priority_queue<std::size_t, std::vector<std::size_t>, std::greater<>>;

  /// Takes all that is ready in a module.
  void Stay(const Node* module) {
    Queue& ready = readyIn_[module];
    while (!ready.empty()) {
      const std::size_t thing = ready.top();
      ready.pop();
      order_.push_back(things_[thing]);
      for (const std::size_t other : behind_[thing]) {
        if (--waiting_[other] == 0) MakeReady(other);
      }
    }
  }

  void MakeReady(std::size_t thing) {
    ready_.push(thing);
    readyIn_[things_[thing]->Enclosing()].push(thing);
  }

  const std::vector<const Node*>& things_;
  std::vector<std::size_t> waiting_;  // by thing, for how many it has to wait
  std::vector<std::vector<std::size_t>> behind_;
  Queue ready_;  // some that are ready, among them all that are not written
  std::unordered_map<const Node*, Queue> readyIn_;
  std::vector<const Node*> order_;
};

/// Modules that need each other, and what stands beside them in such a circle.
struct Ring {
  Related related;
  std::uint32_t scope = 0;  // that orders it
  std::size_t start = 0;    // its place there
};

class Arrangement {
 public:
  explicit Arrangement(Root& root)
      : root_(root),
        nodes_(root.Nodes()),
        precedence_(root),
        ranks_(nodes_.size()),
        isForward_(nodes_.size()),
        states_(nodes_.size(), State::plain) {}

  void Run() {
    if (!isWell()) Repair();
    if (options.Mapping() != ONE_FILE && !isCircular_) FrameFiles(root_, precedence_);
  }

 private:
  enum class State : std::uint8_t {
    plain,
    lacksForwards,  // of its declarations or what they hold
    isDisordered,
    isTakenApart  // what it holds is ordered together with what is around it
  };

  /// Looks at all demands, and marks the scopes that don't satisfy them.
  bool isWell() {
    RankPlainly();
    bool isWell = true;
    ForEachDemand([&](const Demand& demand) {
      const OrderedScope* scope = ScopeOf(demand);
      if (scope == nullptr) return;
      const State wanted = StateFor(demand, *scope);
      State& state = states_[scope->Serial()];
      state = std::max(state, wanted);
      isWell = isWell && wanted == State::plain;
    });
    return isWell;
  }

  void RankPlainly() {
    for (const Node* node : nodes_) {
      const OrderedScope* scope = node->AsOrderedScope();
      if (scope == nullptr) continue;
      std::uint32_t rank = 0;
      for (const Node* child : scope->Sorted()) ranks_[child->Serial()] = rank++;
      for (const Node* child : scope->Forwards()) isForward_[child->Serial()] = true;
    }
  }

  State StateFor(const Demand& demand, const OrderedScope& scope) const {
    const Node& before = MemberOf(scope, *demand.before);
    const Node& after = MemberOf(scope, *demand.after);
    const std::uint32_t place = ranks_[before.Serial()];
    if (place < ranks_[after.Serial()]) return State::plain;
    if (demand.isHard) return State::isDisordered;
    const bool isForward = &before == demand.before && isForward_[before.Serial()];
    return isForward ? State::plain : State::lacksForwards;
  }

  /// The innermost scope around both, which orders them; null when they are in different files.
  const OrderedScope* ScopeOf(const Demand& demand) const {
    const Node* around = demand.after->Enclosing();
    if (around != demand.before->Enclosing()) {
      if (options.Mapping() != ONE_FILE) return nullptr;
      while (around != nullptr && !around->Encloses(*demand.before)) around = around->Enclosing();
    }
    return around == nullptr ? &root_ : around->AsOrderedScope();
  }

  const Node& MemberOf(const OrderedScope& scope, const Node& node) const {
    const Node* around = node.Enclosing() == nullptr ? &root_ : node.Enclosing();
    return around == &scope ? node : *scope.ChildEnclosing(node);
  }

  template <typename Take>
  void ForEachDemand(Take take) {
    for (const Node* node : nodes_) {
      for (const Use& use : node->Used()) precedence_.ForEachDemand(use, take);
    }
  }

  void Repair() {
    ForEachDemand([this](const Demand& demand) { demands_.push_back(demand); });
    Numbering numbering(nodes_.size());
    isCircular_ = !CheckCircles(demands_, numbering);
    if (isCircular_) return;
    SortDemands();
    for (Node* node : nodes_) {
      if (states_[node->Serial()] == State::isDisordered) Order(*node->AsOrderedScope(), numbering);
    }
    CompleteRings();
    SettleForwards();
    ReportRepairs();
  }

  /// By the scopes that order them.
  void SortDemands() {
    for (const Demand& demand : demands_) {
      const OrderedScope* scope = ScopeOf(demand);
      if (scope == nullptr) continue;
      const State state = states_[scope->Serial()];
      if (state == State::isDisordered) demandsOf_[scope->Serial()].push_back(&demand);
    }
  }

  void Order(OrderedScope& scope, Numbering& numbering) {
    Related related{{scope.Sorted().begin(), scope.Sorted().end()}, {}};
    numbering.Number(related.things);
    for (const Demand* demand : demandsOf_[scope.Serial()]) {
      related.edges.push_back({numbering.Of(MemberOf(scope, *demand->after)),
                               numbering.Of(MemberOf(scope, *demand->before)), demand,
                               demand->isHard});
    }
    const std::size_t size = related.things.size();
    const Ordering ordering =
        OrderByDependencies(GraphOf(size, EdgesToKeep(size, std::move(related.edges))));
    std::vector<std::vector<std::size_t>> components(size);
    for (std::size_t each = 0; each < size; ++each) {
      components[ordering.component[each]].push_back(each);
    }
    NodeList sorted;
    for (const std::size_t each : ordering.order) {
      // A circle's members come together, where the first of them that was reached is complete.
      const auto& component = components[each];
      if (component.size() == 1) sorted.push_back(scope.Sorted()[each]);
      if (component.size() > 1) TakeApart(scope, component, sorted);
    }
    if (sorted != scope.Sorted()) reordered_.push_back(&scope);
    scope.SetSorted(std::move(sorted));
  }

  /// Modules whose order can't be had without opening them more than once. In the order of the
  /// scope stands what they hold, in an order to be found out.
  void TakeApart(const OrderedScope& scope, const std::vector<std::size_t>& members,
                 NodeList& sorted) {
    const auto ring = static_cast<std::uint32_t>(rings_.size());
    rings_.emplace_back();
    rings_.back().scope = scope.Serial();
    rings_.back().start = sorted.size();
    NodeList rest;
    for (auto member = members.rbegin(); member != members.rend(); ++member) {
      rest.push_back(scope.Sorted()[*member]);
    }
    while (!rest.empty()) {
      Node* node = rest.back();
      rest.pop_back();
      if (node->isModule()) {
        states_[node->Serial()] = State::isTakenApart;
        const NodeList& inside = node->AsOrderedScope()->Sorted();
        rest.insert(rest.end(), inside.rbegin(), inside.rend());
      } else if (node->isDeclared()) {
        ringOf_[node] = {ring, rings_.back().related.things.size()};
        rings_.back().related.things.push_back(node);
        sorted.push_back(node);
      }
    }
  }

  void CompleteRings() {
    if (rings_.empty()) return;
    for (const Demand& demand : demands_) {
      const auto before = ringOf_.find(demand.before);
      const auto after = ringOf_.find(demand.after);
      if (before == ringOf_.end() || after == ringOf_.end()) continue;
      if (before->second.ring != after->second.ring) continue;
      rings_[after->second.ring].related.edges.push_back(
          {after->second.number, before->second.number, &demand, demand.isHard});
    }
    for (const Ring& ring : rings_) {
      OrderedScope& scope = *nodes_[ring.scope]->AsOrderedScope();
      NodeList sorted = scope.Sorted();
      auto place = sorted.begin() + static_cast<std::ptrdiff_t>(ring.start);
      for (const Node* node : ModuleWalk(ring.related).Run()) {
        *place++ = nodes_[node->Serial()];
      }
      NoteOpenings(scope, ring, sorted);
      scope.SetSorted(std::move(sorted));
    }
  }

  void NoteOpenings(const OrderedScope& scope, const Ring& ring, const NodeList& sorted) {
    std::set<const Node*> closed;
    const Node* open = nullptr;
    for (std::size_t place = 0; place < ring.related.things.size(); ++place) {
      const Node* module = sorted[ring.start + place]->Enclosing();
      if (module == open) continue;
      if (open != nullptr) closed.insert(open);
      open = module;
      if (open != nullptr && open != &scope && closed.contains(open))
        reopened_.insert(open->Serial());
    }
  }

  /// Forward declarations of what is used before it is defined; in scopes that keep their order
  /// besides those that they have.
  void SettleForwards() {
    const Places places(root_);
    std::map<std::uint32_t, NodeList> forwards;
    for (const Demand& demand : demands_) {
      const OrderedScope* scope = ScopeOf(demand);
      if (scope == nullptr || states_[scope->Serial()] == State::plain) continue;
      NodeList& list = forwards[scope->Serial()];
      if (demand.isHard || places.IsDefinedBefore(*demand.before, *demand.after)) continue;
      list.push_back(nodes_[demand.before->Serial()]);
      const Node* module = demand.before->Enclosing();
      if (module != nullptr && module != scope) reopened_.insert(module->Serial());
    }
    for (auto& [serial, list] : forwards) {
      OrderedScope& scope = *nodes_[serial]->AsOrderedScope();
      if (states_[serial] == State::lacksForwards) {
        list.insert(list.end(), scope.Forwards().begin(), scope.Forwards().end());
      }
      SortByCreation(list);
      scope.SetForwards(std::move(list));
    }
  }

  void ReportRepairs() const {
    for (const OrderedScope* scope : reordered_) scope->Report(Message::orderRepaired);
    for (const std::uint32_t serial : reopened_) {
      nodes_[serial]->Report(Message::moduleOpenedAgain);
    }
  }

  struct PlaceInRing {
    std::uint32_t ring;
    std::size_t number;
  };

  Root& root_;
  const std::vector<Node*>& nodes_;
  Precedence precedence_;
  // By serial.
  std::vector<std::uint32_t> ranks_;  // in the plain order of the scope around
  std::vector<bool> isForward_;       // in the plain form
  std::vector<State> states_;
  // What follows is empty when all is well.
  std::vector<Demand> demands_;
  std::unordered_map<std::uint32_t, std::vector<const Demand*>> demandsOf_;
  std::vector<Ring> rings_;
  std::unordered_map<const Node*, PlaceInRing> ringOf_;
  std::vector<const OrderedScope*> reordered_;
  std::set<std::uint32_t> reopened_;
  bool isCircular_ = false;
};

}  // namespace

void Arrange(Root& root) { Arrangement(root).Run(); }

}  // namespace mdktoidl
