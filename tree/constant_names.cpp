#include "tree/constant_names.h"

#include <unordered_set>
#include <vector>

#include "tree/module.h"
#include "types/identifier.h"

namespace mdktoidl {

namespace {

bool isScopedName(std::string_view text) {
  if (text.starts_with("::")) text.remove_prefix(2);
  while (true) {
    const std::size_t end = text.find("::");
    if (!IsIdentifier(text.substr(0, end))) return false;
    if (end == std::string_view::npos) return text != "TRUE" && text != "FALSE";
    text.remove_prefix(end + 2);
  }
}

}  // namespace

const ConstantNames::Index& ConstantNames::All() const {
  if (index_ != nullptr) return *index_;
  index_ = std::make_unique<Index>();
  for (Node* node : root_.Nodes()) {
    if (&node->Kind() == &Include::kind) index_->hasIncludes = true;
    if (!node->declaresConstant()) continue;
    index_->byScopedName.try_emplace(node->ScopedName("::"), node);
    index_->names.insert(node->Name());
  }
  return *index_;
}

Node* ConstantNames::FindScoped(const std::string& scopedName) const {
  const auto& byScopedName = All().byScopedName;
  const auto found = byScopedName.find(scopedName);
  return found == byScopedName.end() ? nullptr : found->second;
}

Node* ConstantNames::FindIn(const Node& scope, std::string_view name) const {
  std::unordered_set<const Node*> seen = {&scope};
  std::vector<const Node*> ahead = {&scope};
  for (std::size_t next = 0; next < ahead.size(); ++next) {
    const Node& each = *ahead[next];
    if (Node* found = FindScoped(each.ScopedName("::") + "::" + std::string(name))) return found;
    for (const Use& use : each.Used()) {
      if (use.role == UseRole::base && seen.insert(use.used).second) ahead.push_back(use.used);
    }
  }
  return nullptr;
}

Node* ConstantNames::Find(const Node& user, std::string_view name) const {
  if (!isScopedName(name)) return nullptr;
  const std::size_t separator = name.rfind("::");
  const std::size_t begin = separator == std::string_view::npos ? 0 : separator + 2;
  if (!All().names.contains(name.substr(begin))) return nullptr;
  if (name.starts_with("::")) return FindScoped(std::string(name.substr(2)));
  for (const Node* scope = user.Enclosing(); scope != nullptr; scope = scope->Enclosing()) {
    if (Node* found = FindIn(*scope, name)) return found;
  }
  return FindScoped(std::string(name));
}

bool ConstantNames::mayBeIncluded(std::string_view text) const {
  return isScopedName(text) && All().hasIncludes;
}

}  // namespace mdktoidl
