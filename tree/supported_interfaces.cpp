#include "tree/supported_interfaces.h"

#include <cstddef>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "tree/interfaces.h"
#include "tree/type_definitions.h"

namespace mdktoidl {

namespace {

template <typename Take>
void ForEachBase(const Node& node, Take take) {
  for (const Use& use : node.Used()) {
    if (use.role == UseRole::base) take(*use.used);
  }
}

bool isDerived(const Interface& derived, const Interface& base) {
  std::unordered_set<const Node*> seen = {&derived};
  std::vector<const Node*> ahead = {&derived};
  for (std::size_t next = 0; next < ahead.size(); ++next) {
    if (ahead[next] == &base) return true;
    ForEachBase(*ahead[next], [&](const Node& each) {
      const Node* declaration = Unaliased(each).declaration;
      if (declaration != nullptr && seen.insert(declaration).second) ahead.push_back(declaration);
    });
  }
  return false;
}

class SupportedInterfaces {
 public:
  /// Goes through a value type and all that it inherits from, bases first, each once.
  void Check(const Value& value) {
    std::vector<const Value*> open = {&value};
    while (!open.empty()) {
      const Value& each = *open.back();
      if (entered_.insert(&each).second) {
        ForEachBase(each, [&](const Node& base) {
          if (base.AsValue() != nullptr && !entered_.contains(base.AsValue())) {
            open.push_back(base.AsValue());
          }
        });
      } else {
        open.pop_back();
        if (!supported_.contains(&each)) supported_[&each] = Settle(each);
      }
    }
  }

 private:
  /// What a value type supports whose bases are settled; null for none.
  const Interface* Settle(const Value& value) const {
    const Interface* own = value.SupportedInterface();
    const Interface* result = own;
    ForEachBase(value, [&](const Node& base) {
      const auto found = supported_.find(base.AsValue());
      const Interface* inherited = found == supported_.end() ? nullptr : found->second;
      if (inherited == nullptr || inherited == result) return;
      if (result == nullptr) {
        result = inherited;
      } else if (own == nullptr || !isDerived(*own, *inherited)) {
        value.Report(
            Message::valueSupportsUnrelated,
            {value.Described(), result->Described(), inherited->Described(), base.Described()},
            base, "the base");
      }
    });
    return result;
  }

  std::unordered_set<const Value*> entered_;
  std::unordered_map<const Value*, const Interface*> supported_;
};

}  // namespace

void CheckSupportedInterfaces(const Root& root) {
  SupportedInterfaces supported;
  for (const Node* node : root.Nodes()) {
    if (node->AsValue() != nullptr) supported.Check(*node->AsValue());
  }
}

}  // namespace mdktoidl
