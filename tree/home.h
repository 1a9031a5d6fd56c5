// A home of the component model: an interface that makes and finds components.
#pragma once

#include <string>
#include <unordered_set>

#include "tree/ordered_scope.h"

namespace mdktoidl {

class Home : public OrderedScope {
 public:
  Home(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;

 private:
  void CollectGeneralizations();
  void CollectSupertype(mdk::IMdeEntity* parent, std::unordered_set<const Node*>& supported);

  mdk::IMdeEntity* baseElement = nullptr;  // the first home among the supertypes; null for none
  Node* baseHome = nullptr;                // its node
  NodeList supports;
  Node* component = nullptr;   // what the home manages; null when it is not part of the export
  Node* primaryKey = nullptr;  // null for a home without keys
};

}  // namespace mdktoidl
