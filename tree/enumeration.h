// An IDL enum.
#pragma once

#include <list>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "tree/container.h"

namespace mdktoidl {

class Enumeration : public Node {
 public:
  Enumeration(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList&) override {}
  void Unparse(std::ofstream& out) override;
  const Enumeration* AsEnumeration() const override { return this; }

  /// The names of the enumerators, in order; read from the model at the first question, because
  /// many unions may ask for the names of one large enumeration.
  const std::vector<std::string>& Literals() const;
  bool hasLiteralNamed(const std::string& name) const;

  /// The name of one of the enumerators as `user` has to write it. Enumerators are declared in the
  /// scope around their enumeration.
  std::string LiteralFor(const Node& user, const std::string& name) const;

  /// Whether an element is one of the enumerators.
  bool hasLiteral(mdk::IMdeEntity* element) const;

 private:
  std::list<mdk::IMdeEntity*> literals;
  // Filled at the first question.
  mutable std::unordered_set<mdk::IMdeEntity*> literalSet;
  mutable std::vector<std::string> names;
  mutable std::unordered_set<std::string_view> nameSet;
};

}  // namespace mdktoidl
