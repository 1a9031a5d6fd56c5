// Other names for types: typedefs, named sequences, boxed values.
#pragma once

#include <optional>

#include "tree/container.h"

namespace mdktoidl {

/// An IDL typedef, of any type: declarations, predefined types, templates and arrays.
class Typedef : public Node {
 public:
  Typedef(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{"typedef",   ScopeKind::none, Inheritance::none,
                                  Forward::no, Language::idl,   13};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  std::optional<Alias> AliasOf() const override;
  void RememberAlias(const Alias& alias) const override { known = alias; }
  const Use* NamedType() const override;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  mdk::IMdeEntity* attribute = nullptr;  // what has the type; null when `general` is it
  mdk::IMdeEntity* general = nullptr;    // the parent of the single generalization
  mutable std::optional<Alias> known;    // what this is in the end another name of
  WrittenType type;
};

/// A named sequence type.
class Sequence : public Node {
 public:
  Sequence(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{"sequence",  ScopeKind::none, Inheritance::none,
                                  Forward::no, Language::idl,   14};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  const Use* NamedType() const override;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  mdk::IMdeEntity* attribute;  // what has the element type; null when there is none
  WrittenType type;            // the sequence, not its element
};

/// An IDL boxed value type.
class BoxedValue : public Node {
 public:
  BoxedValue(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{"boxed value", ScopeKind::none, Inheritance::none,
                                  Forward::no,   Language::idl,   15};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  mdk::IMdeEntity* attribute;  // what has the boxed type; null when there is none
  WrittenType type;
};

/// What a declaration is in the end another name of; the declaration itself when it is none. Empty
/// for definitions that lead in a circle.
Alias Unaliased(const Node& node);

}  // namespace mdktoidl
