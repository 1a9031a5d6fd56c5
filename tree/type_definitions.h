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
  const WrittenType* DefinedType() const override { return &type; }
  Meanings Means() const override { return meanings::type; }
  const WrittenType* Denotes() const override { return &type; }
  const Node* TypeThatHoldsMine() const override { return this; }

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
  const WrittenType* DefinedType() const override { return &type; }
  Meanings Means() const override { return meanings::type; }
  const Node* TypeThatHoldsMine() const override { return this; }

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  mdk::IMdeEntity* attribute;  // what has the element type; null when there is none
  WrittenType type;            // the sequence, not its element
};

/// A typedef that the model doesn't hold: it gives a type a name where IDL wants one. No element is
/// its own, so it has no comment and nobody finds it by an element.
class AddedTypedef : public Node {
 public:
  /// In `parent`, or at the top when that is null. Made for `user`, which has that type; messages
  /// are about that.
  AddedTypedef(std::string_view name, Container* parent, const Node& user, const WrittenType& its);

  const Construct& Kind() const override { return Typedef::kind; }
  void Unparse(Writer& out) const override;
  const WrittenType* DefinedType() const override { return &type; }
  const Node* TypeThatHoldsMine() const override { return this; }
  mdk::IMdeEntity* Blamed() const override { return blamed; }
  Meanings Means() const override { return meanings::type; }

 protected:
  void ResolveTypes(NodeList&) override {}

 private:
  mdk::IMdeEntity* blamed;
  WrittenType type;
};

/// An IDL boxed value type.
class BoxedValue : public Node {
 public:
  BoxedValue(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{"boxed value", ScopeKind::none, Inheritance::none,
                                  Forward::no,   Language::idl,   15};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  Meanings Means() const override { return meanings::type | meanings::boxed; }
  void CheckLegality(const ConstantNames&) const override;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  mdk::IMdeEntity* attribute;  // what has the boxed type; null when there is none
  WrittenType type;
};

/// What a declaration is in the end another name of; the declaration itself when it is none. Empty
/// for definitions that lead in a circle.
Alias Unaliased(const Node& node);

/// What a type is in the end, through type definitions.
struct BaseType {
  const Node* declaration = nullptr;  ///< null for what is predefined or a template
  std::string predefined;             ///< "unsigned long", "string<8>"; empty for anything else
  bool isMadeOfElements = false;      ///< a sequence or an array

  /// False when the type, or what it leads to, could not be identified.
  bool isKnown() const { return declaration != nullptr || !predefined.empty() || isMadeOfElements; }
  /// As users know it.
  std::string Text() const;
};

/// Known once everything is evaluated.
BaseType BaseOf(const WrittenType& type);

}  // namespace mdktoidl
