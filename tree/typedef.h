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

 private:
  mdk::IMdeEntity* attribute = nullptr;  // what has the type; null when `general` is it
  mdk::IMdeEntity* general = nullptr;    // the parent of the single generalization
};

}  // namespace mdktoidl
