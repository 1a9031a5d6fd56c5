// An IDL union.
#pragma once

#include <list>
#include <string>

#include "tree/container.h"

namespace mdktoidl {

/// Its children are the cases.
class Union : public Container {
 public:
  Union(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;
  bool hasForward() const override { return true; }
  void UnparseForward(std::ofstream& out) const override;

 private:
  /// Whether the cases take the discriminator's enumerators in order.
  bool isSimpleUnion() const;
  void EvaluateDiscriminator(NodeList& deps);
  void EvaluateDiscriminatorNode(const TypeReference& reference, NodeList& deps);
  void LabelCases() const;

  mdk::IMdeEntity* discriminator = nullptr;  // the first; null when there is none
  Alias discriminatorType;                   // what the discriminator's type stands for
};

}  // namespace mdktoidl
