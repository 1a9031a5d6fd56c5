// Interfaces, and value and event types.
#pragma once

#include <string_view>

#include "tree/classification.h"
#include "tree/container.h"

namespace mdktoidl {

/// An IDL interface.
class Interface : public OrderedScope {
 public:
  /// An interface inside `parent`; at the top of the tree when that is null.
  Interface(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{"interface",           ScopeKind::reservesItsName,
                                  Inheritance::inherits, Forward::asType,
                                  Language::idl,         1};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  void UnparseForward(Writer& out) const override;

  const Interface* AsInterface() const override { return this; }
  Meanings Means() const override { return meanings::type | meanings::interface; }
  Expectation Expects(UseRole role) const override;
  void CheckLegality(const ConstantNames&) const override;

  bool isAbstract() const;
  /// True for a local interface; one that is abstract as well is written as abstract.
  bool isLocal() const;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  /// Enters the direct supertypes, each once; reports those that have no node.
  void CollectGeneralizations();
  void UnparseKind(Writer& out) const;
};

/// An IDL value type or event type. Its members keep the model's order, but for nested types that
/// must come before their users.
class Value : public OrderedScope {
 public:
  Value(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{"value type",          ScopeKind::reservesItsName,
                                  Inheritance::inherits, Forward::asType,
                                  Language::idl,         2};
  static constexpr Construct eventKind{"event type",          ScopeKind::reservesItsName,
                                       Inheritance::inherits, Forward::asType,
                                       Language::idl,         3};
  const Construct& Kind() const override { return kindWord == "event" ? eventKind : kind; }
  void Unparse(Writer& out) const override;
  void UnparseForward(Writer& out) const override;
  const Value* AsValue() const override { return this; }
  Meanings Means() const override;
  Expectation Expects(UseRole role) const override;
  void Repair(const ConstantNames&) override;
  void CheckLegality(const ConstantNames&) const override;

  bool isAbstract() const { return abstract; }
  /// The first interface that it supports itself and is not abstract; null for none.
  const Interface* SupportedInterface() const;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  void ResolveKind();
  /// Both enter each supertype once and report those that have no node.
  void CollectGeneralizations();
  void CollectSupports();
  void BringForward(UseRole role, bool (*isConcrete)(const Use&));
  void CheckBases() const;
  void CheckSupports() const;
  void UnparseBases(Writer& out) const;

  bool custom = false;
  bool abstract = false;
  std::string_view kindWord = "value";     // written before "type"
  std::string_view forwardWord = "value";  // the same in its forward declaration
};

/// The members of interfaces and homes.
const Classification& InterfaceMembers();

}  // namespace mdktoidl
