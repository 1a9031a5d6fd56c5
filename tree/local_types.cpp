#include "tree/local_types.h"

#include <cstddef>
#include <vector>

#include "tree/interfaces.h"

namespace mdktoidl {

namespace {

bool isLocalInterface(const Node& node) {
  const Interface* interface = node.AsInterface();
  return interface != nullptr && interface->isLocal() && !interface->isAbstract();
}

bool isOfType(const Use& use) {
  return use.role == UseRole::type || use.role == UseRole::element || use.role == UseRole::raises;
}

/// Which types are local, each found once, from the interfaces through what holds them.
class LocalTypes {
 public:
  explicit LocalTypes(const Root& root) : isLocal_(root.Nodes().size()) {
    for (const Node* node : root.Nodes()) {
      if (isLocalInterface(*node)) Add(*node);
    }
    if (found_.empty()) return;
    NoteHolders(root);
    for (std::size_t next = 0; next < found_.size(); ++next) {
      for (const Node* holder : holders_[found_[next]->Serial()]) Add(*holder);
    }
  }

  bool isEmpty() const { return found_.empty(); }
  bool Hold(const Node& node) const { return isLocal_[node.Serial()]; }

 private:
  void Add(const Node& node) {
    if (isLocal_[node.Serial()]) return;
    isLocal_[node.Serial()] = true;
    found_.push_back(&node);
  }

  void NoteHolders(const Root& root) {
    holders_.resize(root.Nodes().size());
    for (const Node* node : root.Nodes()) {
      const Node* holder = node->TypeThatHoldsMine();
      if (holder == nullptr) continue;
      for (const Use& use : node->Used()) {
        if (isOfType(use)) holders_[use.used->Serial()].push_back(holder);
      }
    }
  }

  std::vector<bool> isLocal_;  // by serial
  std::vector<const Node*> found_;
  std::vector<std::vector<const Node*>> holders_;  // by the serial of what they hold
};

/// The interface whose operation or attribute uses a type; null for none.
const Interface* InterfaceAround(const Node& user) {
  if (user.TypeThatHoldsMine() != nullptr || user.Enclosing() == nullptr) return nullptr;
  const Node* around = user.Enclosing();
  if (around->AsInterface() != nullptr) return around->AsInterface();
  return around->Enclosing() == nullptr ? nullptr : around->Enclosing()->AsInterface();
}

void CheckUses(const Node& user, const LocalTypes& local) {
  for (const Use& use : user.Used()) {
    if (!isOfType(use) || !local.Hold(*use.used)) continue;
    const bool isState = (user.Means() & meanings::state) != 0;
    const Interface* interface = InterfaceAround(user);
    if (!isState && (interface == nullptr || isLocalInterface(*interface))) continue;
    user.Report(Message::localTypeUsed, {user.Described(), use.used->Described()}, *use.used,
                "declared here");
  }
}

}  // namespace

void CheckLocalTypes(const Root& root) {
  const LocalTypes local(root);
  if (local.isEmpty()) return;
  for (const Node* node : root.Nodes()) CheckUses(*node, local);
}

}  // namespace mdktoidl
