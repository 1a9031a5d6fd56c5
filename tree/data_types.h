// Structs and exceptions with their fields, enumerations with their enumerators, and constants.
#pragma once

#include <string_view>
#include <unordered_map>

#include "tree/container.h"
#include "tree/members.h"
#include "tree/type_definitions.h"
#include "types/literal.h"

namespace mdktoidl {

/// An IDL struct. Its children are the fields.
class Struct : public Container {
 public:
  Struct(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{"struct",          ScopeKind::reservesItsName,
                                  Inheritance::none, Forward::inSequences,
                                  Language::idl,     9};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  void UnparseForward(Writer& out) const override;
  Meanings Means() const override { return meanings::type; }
  void CheckLegality(const ConstantNames&) const override;
};

/// An IDL exception. Unlike a struct it may be empty, and IDL has no forward form of it.
class Exception : public Container {
 public:
  Exception(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{
      "exception", ScopeKind::reservesItsName, Inheritance::none, Forward::no, Language::idl, 11};
  const Construct& Kind() const override { return kind; }
  Meanings Means() const override { return meanings::exception; }
  void Unparse(Writer& out) const override;
};

/// A member of a struct or an exception.
class Field : public Attribute {
 public:
  using Attribute::Attribute;

  static constexpr Construct kind{"field",     ScopeKind::none, Inheritance::none,
                                  Forward::no, Language::idl,   21};
  const Construct& Kind() const override { return kind; }
  const Node* TypeThatHoldsMine() const override { return Enclosing(); }
  void Unparse(Writer& out) const override;
  const WrittenType* TypeToName() const override { return nullptr; }

 protected:
  void ResolveTypes(NodeList&) override { ResolveMemberType(); }
};

/// One of the values of an enumeration. It stands in the enumeration, but its name lies in the
/// scope around that. It isn't found by its element alone: only who knows the enumeration means it.
class Enumerator : public Node {
 public:
  Enumerator(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) {}

  static constexpr Construct kind{"enumerator", ScopeKind::none, Inheritance::none,
                                  Forward::no,  Language::idl,   24};
  const Construct& Kind() const override { return kind; }
  const Definition* NameScope() const override { return Scope()->Scope(); }
  bool isEnumerator() const override { return true; }
  Meanings Means() const override { return meanings::constant; }
  void Unparse(Writer& out) const override { out << Written(); }

 protected:
  void ResolveTypes(NodeList&) override {}
};

/// An IDL enum. Its children are the enumerators.
class Enumeration : public Container {
 public:
  Enumeration(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{"enum",      ScopeKind::none, Inheritance::none,
                                  Forward::no, Language::idl,   12};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  const Enumeration* AsEnumeration() const override { return this; }
  Meanings Means() const override { return meanings::type; }
  void CheckLegality(const ConstantNames&) const override;

  const Children& Literals() const { return children; }
  /// The enumerator of a name, and the one made from an element; null for none. Of several the
  /// first.
  Enumerator* FindLiteral(std::string_view name) const;
  Enumerator* FindLiteral(const mdk::IMdeEntity* element) const;

 private:
  void UnparseMembers(Writer& out) const override;
  void IndexLiterals() const;

  // Filled at the first question: many unions may ask one large enumeration.
  mutable std::unordered_map<std::string_view, Enumerator*> byName;
  mutable std::unordered_map<const mdk::IMdeEntity*, Enumerator*> byElement;
};

/// An IDL constant.
class Constant : public Node {
 public:
  Constant(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) { CreateNodeRef(); }

  static constexpr Construct kind{"constant",  ScopeKind::none, Inheritance::none,
                                  Forward::no, Language::idl,   16};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  bool declaresConstant() const override { return true; }
  const Constant* AsConstant() const override { return this; }
  Meanings Means() const override { return meanings::constant; }
  void Repair(const ConstantNames&) override;
  void CheckLegality(const ConstantNames&) const override;

  /// What is a constant's type in the end; what constants lead to, as a literal or an enumerator.
  /// Known once everything is evaluated.
  BaseType Base() const { return BaseOf(type); }
  /// The value as a literal; no literal when it is an enumerator, or none is known.
  Literal Value() const;
  /// The value as an enumerator; null when it is none.
  const Node* ValueAsEnumerator() const;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  /// False when there is nothing to go on with.
  bool ResolveTypeOfConstant();
  void ResolveValue();
  void ResolveIdentifier(mdk::IMdeEntity* identifier);
  /// The constant or enumerator that an identifier names; null when it is not part of the export.
  Node* FindValue(mdk::IMdeEntity* named) const;

  /// The constant that has the value, behind those that lead to it; null for a circle.
  const Constant* Last() const;
  const Use* NamedValue() const { return uses.First(UseRole::value); }
  bool isValueLegal(const BaseType& base) const;
  std::string TextOfValue() const;

  WrittenType type;
  mutable const Constant* last = nullptr;  // as `Last` says, once it was asked
  mutable bool isLastKnown = false;
  bool hasText = false;
  std::string_view valueText;  // of a literal; empty where the value is a use
};

}  // namespace mdktoidl
