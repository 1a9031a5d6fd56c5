// What artifacts export: every declaration that the agent writes for them, in the model's order.
//
// Made from the model without the agent's help, for checks before a run and for pictures of it. It
// holds nothing that could be asked of the elements themselves: a declaration is a few words, and a
// model may have a million.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "command/declaration_kind.h"
#include "model/element.h"
#include "model/hash_index.h"

namespace command {

/// A place among the declarations.
using DeclarationIndex = std::uint32_t;
inline constexpr DeclarationIndex kNoDeclaration = model::HashIndex::none;

struct Declaration {
  model::Element* element = nullptr;
  const char* nameText = nullptr;
  std::uint32_t nameSize = 0;
  /// What it stands in; `kNoDeclaration` at the top.
  DeclarationIndex parent = kNoDeclaration;
  /// Behind the last declaration inside it; those inside follow it without a gap.
  DeclarationIndex end = 0;
  DeclarationKind kind = DeclarationKind::kModule;

  /// The name that is written for it.
  std::string_view Name() const { return {nameText, nameSize}; }
};

class Declarations {
 public:
  /// What the artifacts export, one after the other. The elements must outlive this.
  explicit Declarations(std::span<model::Element* const> artifacts);

  DeclarationIndex Size() const { return static_cast<DeclarationIndex>(declarations_.size()); }
  const Declaration& operator[](DeclarationIndex index) const { return declarations_[index]; }

  std::string_view Name(DeclarationIndex index) const { return declarations_[index].Name(); }
  /// The names from the outermost declaration to this one, joined.
  std::string ScopedName(DeclarationIndex index, std::string_view separator = "::") const;
  /// "struct Accounts::Entry", on one line.
  std::string Describe(DeclarationIndex index) const;

  /// The declaration that other declarations mean by an element: the last one made from it.
  /// `kNoDeclaration` for what isn't exported, for null, and for what can't be referred to by name
  /// (attributes, operations, parameters and other members).
  DeclarationIndex Find(const model::Element* element) const;

  /// Whether `index` is `outer` or stands inside it. Everything stands inside `kNoDeclaration`.
  bool IsInside(DeclarationIndex index, DeclarationIndex outer) const {
    return outer == kNoDeclaration || (index >= outer && index < declarations_[outer].end);
  }

  /// The scope that a declaration's name lies in: an enumerator's is that around the enumeration.
  DeclarationIndex ScopeOf(DeclarationIndex index) const {
    const Declaration& declaration = declarations_[index];
    const bool isEnumerator = declaration.kind == DeclarationKind::kEnumerator;
    return isEnumerator ? declarations_[declaration.parent].parent : declaration.parent;
  }
  /// The declaration at the top that one is or stands in.
  DeclarationIndex Outermost(DeclarationIndex index) const {
    while (declarations_[index].parent != kNoDeclaration) index = declarations_[index].parent;
    return index;
  }

  /// Calls `visit` with each declaration directly inside one, or at the top for `kNoDeclaration`.
  template <typename Visit>
  void ForEachChild(DeclarationIndex parent, Visit visit) const {
    const bool isTop = parent == kNoDeclaration;
    const DeclarationIndex end = isTop ? Size() : declarations_[parent].end;
    for (DeclarationIndex child = isTop ? 0 : parent + 1; child < end;) {
      visit(child);
      child = declarations_[child].end;
    }
  }

  /// Calls `visit` with each declaration whose name lies in the scope that one makes, or in that at
  /// the top: those directly inside it, and the enumerators of these.
  template <typename Visit>
  void ForEachNameIn(DeclarationIndex scope, Visit visit) const {
    ForEachChild(scope, [&](DeclarationIndex member) {
      visit(member);
      if (declarations_[member].kind == DeclarationKind::kEnum) ForEachChild(member, visit);
    });
  }

 private:
  void AddTree(model::Element& top, DeclarationKind kind);
  void IndexElements();

  std::vector<Declaration> declarations_;
  model::HashIndex byElement_;  // of what others refer to
};

/// The suppliers of an artifact's manifestations that are exported, each with its kind.
std::vector<std::pair<model::Element*, DeclarationKind>> ExportedBy(const model::Element& artifact);

/// Whether the artifact has IDL files of others included.
bool IncludesFiles(const model::Element& artifact);

}  // namespace command
