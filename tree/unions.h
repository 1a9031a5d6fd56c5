// Unions, their cases and the labels of these.
#pragma once

#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "tree/container.h"
#include "tree/members.h"
#include "tree/type_definitions.h"

namespace mdktoidl {

class Case;

/// An IDL union. Its children are the cases.
class Union : public Container {
 public:
  Union(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{"union",           ScopeKind::reservesItsName,
                                  Inheritance::none, Forward::inSequences,
                                  Language::idl,     10};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  void UnparseForward(Writer& out) const override;
  Meanings Means() const override { return meanings::type; }
  void Repair(const ConstantNames& constants) override;
  void CheckLegality(const ConstantNames& constants) const override;

  /// Whether the cases take the discriminator's enumerators in order.
  bool isSimpleUnion() const;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  /// What the discriminator's type stands for in the end.
  Alias ResolveDiscriminator();

  mdk::IMdeEntity* discriminator = nullptr;  // the first; null when there is none
  WrittenType type;                          // of the discriminator
};

/// A case of a union: its labels and its member.
class Case : public Attribute {
 public:
  using Attribute::Attribute;

  static constexpr Construct kind{"case",      ScopeKind::none, Inheritance::none,
                                  Forward::no, Language::idl,   23};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  const Node* TypeThatHoldsMine() const override { return Enclosing(); }
  const WrittenType* TypeToName() const override { return nullptr; }

  /// Whether the case takes all values that no other takes.
  bool isDefault() const;
  /// The labels as the model gives them.
  std::list<std::string> GivenLabels() const;
  bool hasLabels() const { return !labels.empty(); }
  /// Adds a label as IDL writes it, a literal or an enumerator; the union does, which knows the
  /// discriminator.
  void AddLabel(std::string literal) { labels.push_back({std::move(literal), nullptr}); }
  void AddLabel(Node& enumerator, Spelling spelling);

  struct Label {
    std::string literal;
    const Use* named;  // an enumerator or a constant; null for a literal
  };
  const std::vector<Label>& Labels() const { return labels; }
  /// Writes labels for that type where the model's text won't do, and lets those that are
  /// constants' names be uses.
  void RepairLabels(const BaseType& type, const ConstantNames& constants);

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  std::vector<Label> labels;
};

}  // namespace mdktoidl
