// A parameter of an operation.
#pragma once

#include <string_view>

#include "tree/container.h"

namespace mdktoidl {

class Line;
class Operation;

class Parameter : public Node {
 public:
  Parameter(mdk::IMdeEntity* element, Operation& parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;
  void Unparse(Line& line) const;

  /// Whether this is the operation's result.
  bool isResult() const { return result; }

 private:
  const Operation& operation;
  std::string_view keyword;  // "in ", "out " or "inout "; empty for any other direction
  bool result;
};

}  // namespace mdktoidl
