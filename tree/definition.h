// The root of all declarations: a model element and the declaration that encloses it.
#pragma once

#include <string>

#include "host/element.h"

namespace mdktoidl {

class Definition {
 public:
  virtual ~Definition() = default;
  Definition(const Definition&) = delete;
  Definition& operator=(const Definition&) = delete;

  /// The model element that the declaration was built from, borrowed; null when there is none.
  mdk::IMdeEntity* Entity() const { return entity; }

  /// The enclosing declaration; null at the top of the tree.
  Definition* Scope() const { return scope; }

  /// The element's name as the model has it; empty without an element.
  std::string Name() const;

  /// Sets `result` to the names from the outermost declaration to this one, joined.
  void BuildScopedName(std::string& result, const std::string& separator) const;
  std::string ScopedName(const std::string& separator) const;

  /// The "::" name of the enclosing declaration; empty at the top.
  std::string ScopeAsString() const;

  /// Whether `other` can be named here by its simple name. Deliberately a comparison of texts: what
  /// stands in A::Bc counts as inside A::B.
  bool InCurrentScope(const Definition* other) const;

 protected:
  explicit Definition(mdk::IMdeEntity* element) : entity(element) {}

  Definition* scope = nullptr;
  mdk::IMdeEntity* entity;
};

}  // namespace mdktoidl
