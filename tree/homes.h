// Homes, and the implementations of components: compositions with their home executors and
// segments.
#pragma once

#include <span>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "tree/container.h"

namespace mdktoidl {

/// A home of the component model: an interface that makes and finds components.
class Home : public OrderedScope {
 public:
  Home(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{
      "home", ScopeKind::reservesItsName, Inheritance::inherits, Forward::no, Language::idl, 4};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  Meanings Means() const override { return meanings::type | meanings::home; }
  Expectation Expects(UseRole role) const override;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  void CollectGeneralizations();
  void CollectSupertype(mdk::IMdeEntity* parent, std::unordered_set<const Node*>& supported);
  void UnparseUse(UseRole role, std::string_view keyword, Writer& out) const;

  mdk::IMdeEntity* baseElement = nullptr;  // the first home among the supertypes; null for none
};

class HomeImpl;
class Segment;

/// A component implementation: a composition of the component implementation language. Its children
/// are the home executor and the segments.
class ComponentImpl : public Container {
 public:
  ComponentImpl(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{"composition", ScopeKind::open, Inheritance::none,
                                  Forward::no,   Language::cidl,  6};
  const Construct& Kind() const override { return kind; }
  /// The name that the composition has in the model, or else the implementation's.
  std::string_view WrittenName() const override { return compositionName; }
  void Unparse(Writer& out) const override;
  Meanings Means() const override { return meanings::composition; }
  void CheckLegality(const ConstantNames&) const override;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  /// Writes the home executor, and the segments inside it.
  void UnparseMembers(Writer& out) const override;
  void AdoptMember(mdk::IMdeEntity* member);
  std::string Category() const;

  const HomeImpl* homeExecutor = nullptr;  // null when the model has none
  std::vector<const Segment*> segments;
  std::string_view compositionName;
};

/// The home executor of a composition: which home it implements and which component it manages.
class HomeImpl : public Node {
 public:
  HomeImpl(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) { CreateNodeRef(); }

  static constexpr Construct kind{"home executor", ScopeKind::none, Inheritance::none,
                                  Forward::no,     Language::cidl,  7};
  const Construct& Kind() const override { return kind; }
  /// Nothing: a home executor is written by its composition, which knows the segments.
  void Unparse(Writer&) const override {}
  Expectation Expects(UseRole role) const override;
  void UnparseExecutor(std::span<const Segment* const> segments, Writer& out) const;
  /// Whether the home that it implements and the implementation that it manages are part of the
  /// export. Without both it can't be written.
  bool isComplete() const { return uses.Has(UseRole::implements) && uses.Has(UseRole::manages); }
  /// The component of the home that it implements; null for none that is known.
  const Node* Component() const;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  void UnparseManaged(std::span<const Segment* const> segments, Writer& out) const;
};

/// A segment of a component implementation: the facets that one executor provides.
class Segment : public Node {
 public:
  Segment(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) { CreateNodeRef(); }

  static constexpr Construct kind{"segment",   ScopeKind::none, Inheritance::none,
                                  Forward::no, Language::cidl,  8};
  const Construct& Kind() const override { return kind; }
  /// Only inside a composition.
  bool isDeclared() const override;
  /// Nothing: a segment is written inside its composition's home executor alone.
  void Unparse(Writer&) const override {}
  void UnparseSegment(Writer& out) const;
  void Repair(const ConstantNames&) override;
  /// Reports the facets that a component, or one that it inherits from, doesn't have.
  void CheckFacets(const Node& component) const;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  bool isInGrammar = false;  // written as compilers want it, and not as in the plain form
};

}  // namespace mdktoidl
