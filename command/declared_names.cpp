#include "command/declared_names.h"

#include "command/idl_identifier.h"

namespace command {
namespace {

std::uint32_t HashOf(std::string_view name) {
  return static_cast<std::uint32_t>(NameHash()(name) >> 32);
}

}  // namespace

DeclaredNames::DeclaredNames(const Declarations& declarations)
    : declarations_(declarations),
      isShared_(declarations.Size()),
      index_(declarations.Size()) {
  numbers_.reserve(declarations.Size());
  for (DeclarationIndex index = 0; index < declarations.Size(); ++index) {
    numbers_.push_back(Enter(index));
  }
}

NameNumber DeclaredNames::Find(std::string_view name) const { return Find(name, HashOf(name)); }

NameNumber DeclaredNames::Find(std::string_view name, std::uint32_t hash) const {
  return index_.Find(
      hash, [&](NameNumber number) { return IsSameName(declarations_.Name(number), name); });
}

NameNumber DeclaredNames::Enter(DeclarationIndex declaration) {
  const std::string_view name = declarations_.Name(declaration);
  if (name.empty()) return kNoName;
  const std::uint32_t hash = HashOf(name);
  const NameNumber known = Find(name, hash);
  if (known != kNoName) {
    isShared_[known] = 1;
    return known;
  }
  index_.MakeRoom();
  index_.Add(hash, declaration);
  return declaration;
}

}  // namespace command
