#include "tree/container.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <list>

#include "tree/classification.h"
#include "tree/openings.h"
#include "types/elements.h"

namespace mdktoidl {

// A subtree is built without a break, so its serials are an interval: whether a node encloses
// another, and which of its children does, needs no walk through the tree.
void Container::Adopt(std::unique_ptr<Node> child) {
  assert(child->serial == lastSerial + 1);
  lastSerial = child->lastSerial;
  child->position = static_cast<std::uint32_t>(children.size());
  children.push_back(std::move(child));
}

// The recursion is as deep as declarations are nested, which modules limit.
void Container::Number(NodeList& order) {
  Node::Number(order);
  std::uint32_t next = 0;
  for (const auto& child : children) {
    child->position = next++;
    child->Number(order);
    assert(child->serial > serial && child->lastSerial + 1 == order.size());
  }
  lastSerial = static_cast<std::uint32_t>(order.size() - 1);
}

void Container::AdoptMembers(const Classification& table) {
  const std::list<mdk::IMdeEntity*> members = Elements(Entity(), properties::ownedMember);
  children.reserve(members.size());
  for (mdk::IMdeEntity* member : members) {
    if (auto node = Classify(table, member, this)) Adopt(std::move(node));
  }
}

Node* Container::ChildEnclosing(const Node& node) const {
  const auto startsBehind = [](std::uint32_t serial, const std::unique_ptr<Node>& child) {
    return serial < child->Serial();
  };
  const auto behind =
      std::upper_bound(children.begin(), children.end(), node.Serial(), startsBehind);
  if (behind == children.begin()) return nullptr;
  Node* child = std::prev(behind)->get();
  return child->Encloses(node) ? child : nullptr;
}

void Container::ObserveReferences(const Node&, const NodeList&) {}

// The list is emptied for each child: what one leaves over can't become a dependency of the next,
// and is not sorted again for each of its siblings.
void Container::EvaluateChildren(NodeList& outside, DependencyGraph* graph) {
  NodeList deps;
  if (graph != nullptr) graph->Reserve(children.size());
  for (const auto& child : children) {
    deps.clear();
    child->EvaluateTypes(deps);
    if (graph != nullptr) graph->AddNode();
    if (deps.empty()) continue;
    ObserveReferences(*child, deps);
    MoveLocalDeclarations(*child, deps, graph);
    outside.insert(outside.end(), deps.begin(), deps.end());
  }
  SortByCreation(outside);
}

void Container::MoveLocalDeclarations(const Node& child, NodeList& deps,
                                      DependencyGraph* graph) const {
  SortByCreation(deps);
  auto left = deps.begin();
  const Node* moved = nullptr;
  for (Node* dependency : deps) {
    const Node* local = ChildEnclosing(*dependency);
    if (local == nullptr) {
      *left++ = dependency;
    } else if (local != moved && (local != &child || dependency == &child)) {
      if (graph != nullptr) graph->AddDependency(local->position);
      moved = local;
    }
  }
  deps.erase(left, deps.end());
}

void Container::UnparseBody(Writer& out) const {
  out << " {";
  indent(out);
  UnparseMembers(out);
  redent(out);
  newline(out);
  out << "};";
}

void Container::UnparseMembers(Writer& out) const {
  for (const auto& child : children) child->Unparse(out);
}

bool OrderedScope::declares(std::string_view name) const {
  if (names == nullptr) {
    names = std::make_unique<std::unordered_set<std::string_view>>();
    for (const auto& child : children) names->insert(child->Name());
  }
  return names->contains(name);
}

void OrderedScope::EvaluateAndSort(NodeList& outside) {
  DependencyGraph graph;
  EvaluateChildren(outside, &graph);
  const Ordering ordering = OrderByDependencies(graph);
  sorted.reserve(children.size());
  for (std::size_t position : ordering.order) sorted.push_back(children[position].get());
  for (std::size_t position : ordering.cyclic) {
    Node* node = children[position].get();
    forwards.push_back(node);
    if (node->Kind().forward == Forward::no) node->Report(Message::cannotBeForward);
  }
}

namespace {

/// An item, and the place in a list before which it belongs.
template <typename Item>
struct Placed {
  std::size_t place;
  Item item;
};

/// Puts items into a list; those for one place in their order.
template <typename Item>
void PutInto(std::vector<Item>& list, std::vector<Placed<Item>> items) {
  std::ranges::stable_sort(items, {}, &Placed<Item>::place);
  std::vector<Item> merged;
  merged.reserve(list.size() + items.size());
  auto next = items.begin();
  for (std::size_t place = 0; place <= list.size(); ++place) {
    for (; next != items.end() && next->place == place; ++next) {
      merged.push_back(std::move(next->item));
    }
    if (place < list.size()) merged.push_back(std::move(list[place]));
  }
  list = std::move(merged);
}

}  // namespace

void OrderedScope::Insert(std::vector<Insertion> insertions) {
  std::vector<std::size_t> ranks(children.size());  // in the output, by position
  for (std::size_t rank = 0; rank < sorted.size(); ++rank) ranks[sorted[rank]->position] = rank;
  std::vector<Placed<std::unique_ptr<Node>>> created;
  std::vector<Placed<Node*>> written;
  for (Insertion& insertion : insertions) {
    std::size_t position = children.size();
    std::size_t rank = sorted.size();
    for (const Node* user : insertion.users) {
      const std::size_t place = ChildEnclosing(*user)->position;
      position = std::min(position, place);
      rank = std::min(rank, ranks[place]);
    }
    if (insertion.users.empty()) {
      position = ChildEnclosing(*insertion.used)->position + std::size_t{1};
      rank = ranks[position - 1] + 1;
    }
    written.push_back({rank, insertion.node.get()});
    created.push_back({position, std::move(insertion.node)});
  }
  PutInto(children, std::move(created));
  PutInto(sorted, std::move(written));
  names.reset();
}

void OrderedScope::UnparseForwards(Writer& out) const { WriteForwards(*this, forwards, out); }

void OrderedScope::UnparseMembers(Writer& out) const {
  UnparseForwards(out);
  Openings openings(*this, out);
  for (const Node* child : sorted) {
    openings.GoTo(*child);
    UnparseChild(*child, out);
  }
  openings.CloseAll();
}

}  // namespace mdktoidl
