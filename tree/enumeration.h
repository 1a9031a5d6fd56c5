// An IDL enum.
#pragma once

#include <list>
#include <string>
#include <unordered_set>

#include "tree/container.h"

namespace mdktoidl {

class Enumeration : public Node {
 public:
  Enumeration(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList&) override {}
  void Unparse(std::ofstream& out) override;
  const Enumeration* AsEnumeration() const override { return this; }

  /// Appends the names of the enumerators, in order.
  void Literals(std::list<std::string>& names) const;

  /// The name of one of the enumerators as `user` has to write it. Enumerators are declared in the
  /// scope around their enumeration.
  std::string LiteralFor(const Node& user, const std::string& name) const;

  /// Whether an element is one of the enumerators.
  bool hasLiteral(mdk::IMdeEntity* element) const;

 private:
  std::list<mdk::IMdeEntity*> literals;
  mutable std::unordered_set<mdk::IMdeEntity*> literalSet;  // filled at the first question
};

}  // namespace mdktoidl
