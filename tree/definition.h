// The root of all declarations: a model element and the declaration that encloses it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/element.h"

namespace mdktoidl {

/// A name as it is written.
struct Identifier {
  std::string_view name;
  bool isEscaped;  ///< an underscore stands before it, which makes any keyword a name
};

class Definition {
 public:
  virtual ~Definition() = default;
  Definition(const Definition&) = delete;
  Definition& operator=(const Definition&) = delete;

  /// The model element that the declaration was built from, borrowed; null when there is none.
  mdk::IMdeEntity* Entity() const { return entity; }

  /// The enclosing declaration; null at the top of the tree.
  const Definition* Scope() const { return scope; }
  /// The declaration in whose scope its name lies; null for the top. An enumeration makes no scope,
  /// so its enumerators' names lie in that around it.
  virtual const Definition* NameScope() const { return scope; }

  /// The element's name as the model has it, but for what the model doesn't hold; empty without an
  /// element.
  std::string_view Name() const { return {name, nameSize}; }

  /// The name that is written for it, nearly always the model's.
  virtual std::string_view WrittenName() const { return Name(); }
  Identifier Written() const { return {WrittenName(), escaped != 0}; }
  /// The name by which others write it. For a composition that isn't the name that it declares:
  /// what is managed is the implementation.
  Identifier AsUsed() const { return {Name(), escaped != 0}; }
  /// Lets the name be written with the underscore that makes any keyword a name.
  void Escape() { escaped = 1; }

  /// The names from the outermost declaration to this one, joined.
  std::string ScopedName(std::string_view separator) const;

  /// Whether it is that one or stands inside it; everything is inside null, the top.
  bool isInside(const Definition* around) const;

  /// Whether `other` can be named here by its simple name. Deliberately a comparison of texts,
  /// since files in use are written so: what stands in A::Bc counts as inside A::B.
  bool InCurrentScope(const Definition* other) const;

 protected:
  Definition(mdk::IMdeEntity* element, const Definition* enclosing);
  /// The same by another name than the element's.
  Definition(mdk::IMdeEntity* element, std::string_view name, const Definition* enclosing);

 private:
  void BuildScopedName(std::string& result, std::string_view separator) const;

  const Definition* scope;
  mdk::IMdeEntity* entity;
  const char* name = nullptr;  // lies in memory of the run
  std::uint32_t nameSize : 31 = 0;
  std::uint32_t escaped : 1 = 0;
};

}  // namespace mdktoidl
