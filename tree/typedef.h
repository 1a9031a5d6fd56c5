// An IDL typedef, of any type: declarations, predefined types, templates and arrays.
#pragma once

#include "tree/container.h"

namespace mdktoidl {

class Typedef : public Node {
 public:
  Typedef(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;
  std::optional<Alias> AliasOf() const override;
  void RememberAlias(const Alias& alias) const override { known = alias; }

 private:
  mdk::IMdeEntity* attribute = nullptr;  // what has the type; null when `general` is it
  mdk::IMdeEntity* general = nullptr;    // the parent of the single generalization
  mutable std::optional<Alias> known;    // what this is in the end another name of
};

}  // namespace mdktoidl
