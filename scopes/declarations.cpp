#include "scopes/declarations.h"

#include <string_view>
#include <vector>

#include "types/one_line.h"

namespace mdktoidl {

std::string WrittenScopedName(const Node& node) {
  std::vector<std::string_view> inwards;
  for (const Node* each = &node; each != nullptr; each = each->Enclosing()) {
    inwards.push_back(each->WrittenName());
  }
  std::string name(inwards.back());
  for (std::size_t i = inwards.size() - 1; i-- > 0;) name.append("::").append(inwards[i]);
  return name;
}

std::string Describe(const Node& node) {
  return std::string(node.Kind().word) + " " + OneLine(WrittenScopedName(node));
}

void AddRelated(const Node& other, Diagnostic& diagnostic) {
  if (other.Blamed() != nullptr) diagnostic.related.push_back({other.Blamed(), Describe(other)});
}

const Node& Outermost(const Node& node) {
  const Node* each = &node;
  while (each->Enclosing() != nullptr) each = each->Enclosing();
  return *each;
}

}  // namespace mdktoidl
