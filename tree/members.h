// What interfaces, value types, homes and components have as members: attributes, state members and
// operations with their parameters.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tree/container.h"

namespace mdktoidl {

/// An attribute of an interface, and the base of all members that a UML attribute becomes.
class Attribute : public Node {
 public:
  Attribute(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) {
    CreateNodeRef();
  }

  static constexpr Construct kind{"attribute", ScopeKind::none, Inheritance::inherited,
                                  Forward::no, Language::idl,   17};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;

  const WrittenType* TypeToName() const override { return &type; }
  void NameType(Node& definition) override { WriteTypeAs(definition, type); }

  /// True for an attribute that is frozen in the model.
  virtual bool isReadOnly() const;

 protected:
  void ResolveTypes(NodeList& deps) override;
  /// The same for what may be of a template.
  void ResolveMemberType();

  WrittenType type;
};

/// A state member of a value type.
class State : public Attribute {
 public:
  using Attribute::Attribute;

  Meanings Means() const override { return meanings::state; }
  void Repair(const ConstantNames&) override;

  static constexpr Construct kind{"state member", ScopeKind::none, Inheritance::inherited,
                                  Forward::no,    Language::idl,   22};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  const WrittenType* TypeToName() const override { return nullptr; }

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  bool showsSize = false;  // of an array, behind the name
};

class Parameter;

/// An IDL operation: plain, oneway, a factory or a finder. A UML signal becomes a oneway operation.
/// Its children are the parameters, the return parameter included.
class Operation : public Container {
 public:
  Operation(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{"operation", ScopeKind::open, Inheritance::inherited,
                                  Forward::no, Language::idl,   18};
  /// Factories and finders make something for their home or value type, which heirs don't inherit.
  static constexpr Construct creatorKind{"factory",   ScopeKind::open, Inheritance::none,
                                         Forward::no, Language::idl,   19};
  const Construct& Kind() const override { return finder || factory ? creatorKind : kind; }
  void Unparse(Writer& out) const override;
  Meanings Means() const override { return factory || finder ? meanings::factory : Meanings(); }
  void Repair(const ConstantNames&) override;
  void CheckLegality(const ConstantNames&) const override;
  const WrittenType* TypeToName() const override { return writesResult() ? &type : nullptr; }
  void NameType(Node& definition) override;

  bool isFactory() const { return factory; }
  bool isFinder() const { return finder; }
  bool isSignal() const;
  /// Whether the rules of oneway operations hold: only in-parameters and no exceptions. Finders and
  /// factories count, although they are not written with "oneway".
  bool isOneway() const;
  /// The last parameter that is a result; null for none.
  const Parameter* Result() const { return returnParameter; }

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  bool DetermineOneway() const;
  /// Whether the type of the result is written.
  bool writesResult() const;
  /// All uses but exceptions stand before the name.
  void PlaceUses();
  void CheckOwner() const;
  void ResolveRaises();
  void ResolveResult(TypeReference& result) const;
  void UnparsePrefix(Writer& out) const;
  void UnparseParameters(Writer& out) const;
  void ResolveContext();
  void UnparseContext(Writer& out) const;

  using ContextStrings = std::vector<std::string>;

  const Parameter* returnParameter = nullptr;
  WrittenType type;                         // of the result
  std::unique_ptr<ContextStrings> context;  // as they are written; null for none, which is usual
  bool finder;
  bool factory;
  mutable std::optional<bool> oneway;  // asked of the model at the first question
};

/// A parameter of an operation.
class Parameter : public Node {
 public:
  Parameter(mdk::IMdeEntity* element, Operation& parent);

  static constexpr Construct kind{"parameter", ScopeKind::none, Inheritance::none,
                                  Forward::no, Language::idl,   20};
  const Construct& Kind() const override { return kind; }
  /// The operation writes the type of its result in place of the parameter.
  bool isDeclared() const override;
  void Unparse(Writer& out) const override;
  void CheckLegality(const ConstantNames&) const override;
  const WrittenType* TypeToName() const override { return &type; }
  void NameType(Node& definition) override { WriteTypeAs(definition, type); }

  /// Whether this is a result of the operation.
  bool isResult() const { return direction == Direction::result; }
  /// Reports what is wrong with the type of a result, which the operation looks up.
  void ReportResult(const TypeReference& reference) const;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  enum class Direction : std::uint8_t { in, inOut, out, result, unknown };

  static Direction DirectionOf(std::string_view text);
  std::string_view Keyword() const;
  void CheckDirection() const;

  Direction direction;
  WrittenType type;
};

}  // namespace mdktoidl
