// An IDL constant.
#pragma once

#include <string>

#include "tree/container.h"

namespace mdktoidl {

class Constant : public Node {
 public:
  Constant(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) { CreateNodeRef(); }

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;
  bool declaresConstant() const override { return true; }

 private:
  /// Both return false when there is nothing to go on with.
  bool EvaluateType(NodeList& deps);
  bool EvaluateDefinition(const TypeReference& reference, NodeList& deps);

  void EvaluateValue(NodeList& deps);
  void EvaluateIdentifier(mdk::IMdeEntity* identifier, NodeList& deps);
  std::string QualifiedValue() const;

  std::string valueText;
  Node* valueNode = nullptr;  // the constant or enumeration that an identifier leads to
};

}  // namespace mdktoidl
