#include "command/declared_names.h"

#include "command/idl_identifier.h"

namespace command {
namespace {

std::uint32_t HashOf(std::string_view name) {
  return static_cast<std::uint32_t>(NameHash()(name) >> 32);
}

}  // namespace

DeclaredNames::DeclaredNames(const Declarations& declarations) {
  numbers_.reserve(declarations.Size());
  for (DeclarationIndex index = 0; index < declarations.Size(); ++index) {
    numbers_.push_back(Enter(declarations.Name(index)));
  }
}

NameNumber DeclaredNames::Find(std::string_view name) const { return Find(name, HashOf(name)); }

NameNumber DeclaredNames::Find(std::string_view name, std::uint32_t hash) const {
  return index_.Find(hash, [&](NameNumber number) { return IsSameName(names_[number], name); });
}

NameNumber DeclaredNames::Enter(std::string_view name) {
  if (name.empty()) return kNoName;
  const std::uint32_t hash = HashOf(name);
  NameNumber number = Find(name, hash);
  if (number == kNoName) {
    number = static_cast<NameNumber>(names_.size());
    index_.MakeRoom();
    names_.push_back(name);
    index_.Add(hash, number);
  }
  return number;
}

}  // namespace command
