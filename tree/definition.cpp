#include "tree/definition.h"

#include "types/properties.h"

namespace mdktoidl {

std::string Definition::Name() const {
  return entity == nullptr ? std::string() : entity->GetValue(properties::name, 0);
}

void Definition::BuildScopedName(std::string& result, const std::string& separator) const {
  if (scope == nullptr) {
    result = Name();
  } else {
    scope->BuildScopedName(result, separator);
    result.append(separator).append(Name());
  }
}

std::string Definition::ScopedName(const std::string& separator) const {
  std::string result;
  BuildScopedName(result, separator);
  return result;
}

std::string Definition::ScopeAsString() const {
  return scope == nullptr ? std::string() : scope->ScopedName("::");
}

bool Definition::InCurrentScope(const Definition* other) const {
  // An enclosing declaration's text is a prefix by construction; most names are found so.
  for (const Definition* each = this; each != nullptr; each = each->scope) {
    if (each == other->scope) return true;
  }
  return ScopedName("::").starts_with(other->ScopeAsString());
}

}  // namespace mdktoidl
