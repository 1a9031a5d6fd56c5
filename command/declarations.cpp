#include "command/declarations.h"

#include <algorithm>
#include <unordered_set>

#include "command/model_words.h"
#include "command/one_line.h"

namespace command {
namespace {

using model::Element;
using Kind = DeclarationKind;

/// A declaration and those of its members that are still to be looked at.
struct Level {
  DeclarationIndex owner;
  std::span<Element* const> members;
};

/// Whether others refer to declarations of the kind by name.
bool IsReferredTo(Kind kind) {
  switch (kind) {
    case Kind::kAttribute:
    case Kind::kOperation:
    case Kind::kFactory:
    case Kind::kParameter:
    case Kind::kField:
    case Kind::kState:
    case Kind::kCase:
    case Kind::kPort:
      return false;
    default:
      return true;
  }
}

bool HoldsDeclarations(Kind kind) {
  switch (kind) {
    case Kind::kTypedef:
    case Kind::kSequence:
    case Kind::kBoxedValue:
    case Kind::kHomeExecutor:
    case Kind::kSegment:
      return false;
    default:
      return IsReferredTo(kind) || kind == Kind::kOperation || kind == Kind::kFactory;
  }
}

/// Only to look elements up by: no order follows from it.
std::uint32_t HashOf(const Element* element) {
  const auto address = reinterpret_cast<std::uintptr_t>(element);
  return static_cast<std::uint32_t>(address * 0x9E3779B97F4A7C15U >> 32);
}

/// A composition may be named apart from the implementation that it is made from.
std::string_view WrittenName(const Element& element, Kind kind) {
  if (kind == Kind::kComposition) {
    const Element* application = element.Application(words::corbaComponentImpl);
    const Element* value = application == nullptr ? nullptr : application->Entity(words::composite);
    const std::string_view given = value == nullptr ? "" : value->Text(words::valueString);
    if (!given.empty()) return given;
  }
  return element.Text(words::name);
}

}  // namespace

std::vector<std::pair<Element*, Kind>> ExportedBy(const Element& artifact) {
  std::vector<std::pair<Element*, Kind>> exported;
  for (const Element* dependency : artifact.Entities(words::clientDependency)) {
    Element* supplier = dependency->Entity(words::supplier);
    if (supplier == nullptr || !IsMarked(*dependency, words::manifest)) continue;
    if (const auto kind = KindAtTop(*supplier)) exported.emplace_back(supplier, *kind);
  }
  return exported;
}

bool IncludesFiles(const Element& artifact) {
  return std::ranges::any_of(artifact.Entities(words::clientDependency), [](Element* dependency) {
    const Element* supplier = dependency->Entity(words::supplier);
    return supplier != nullptr && !IsMarked(*dependency, words::manifest) &&
           supplier->Metaclass() == words::artifact && IsMarked(*supplier, words::idlFile);
  });
}

Declarations::Declarations(std::span<Element* const> artifacts) {
  for (const Element* artifact : artifacts) {
    for (const auto& [supplier, kind] : ExportedBy(*artifact)) AddTree(*supplier, kind);
  }
  IndexElements();
}

// With a list of levels, not recursively: how deep packages nest is for the model to say. A package
// that a bad model puts into itself is not entered again.
void Declarations::AddTree(Element& top, Kind topKind) {
  std::unordered_set<const Element*> modules;
  std::vector<Level> levels;
  const auto add = [&](Element& element, DeclarationIndex parent, Kind kind) {
    if (kind == Kind::kModule && !modules.insert(&element).second) return;
    const DeclarationIndex index = Size();
    const std::string_view name = WrittenName(element, kind);
    const auto nameSize = static_cast<std::uint32_t>(name.size());
    declarations_.push_back({&element, name.data(), nameSize, parent, index + 1, kind});
    if (HoldsDeclarations(kind)) levels.push_back({index, element.Entities(MembersOf(kind))});
  };
  add(top, kNoDeclaration, topKind);
  while (!levels.empty()) {
    Level& level = levels.back();
    const DeclarationIndex owner = level.owner;
    if (level.members.empty()) {
      declarations_[owner].end = Size();
      levels.pop_back();
      continue;
    }
    Element& member = *level.members.front();
    level.members = level.members.subspan(1);
    if (const auto kind = KindOfMember(declarations_[owner].kind, member)) {
      add(member, owner, *kind);
    }
  }
}

/// From the last one on: of several made from one element others mean the last.
void Declarations::IndexElements() {
  for (DeclarationIndex index = Size(); index-- > 0;) {
    const Element* element = declarations_[index].element;
    if (!IsReferredTo(declarations_[index].kind) || Find(element) != kNoDeclaration) continue;
    byElement_.MakeRoom();
    byElement_.Add(HashOf(element), index);
  }
}

std::string Declarations::ScopedName(DeclarationIndex index, std::string_view separator) const {
  std::vector<std::string_view> inwards;
  for (; index != kNoDeclaration; index = declarations_[index].parent) {
    inwards.push_back(Name(index));
  }
  std::string name(inwards.back());
  for (std::size_t i = inwards.size() - 1; i-- > 0;) name.append(separator).append(inwards[i]);
  return name;
}

std::string Declarations::Describe(DeclarationIndex index) const {
  return std::string(WordFor(declarations_[index].kind)) + " " + OneLine(ScopedName(index));
}

DeclarationIndex Declarations::Find(const Element* element) const {
  return byElement_.Find(HashOf(element), [&](DeclarationIndex index) {
    return declarations_[index].element == element;
  });
}

}  // namespace command
