// A parameter of an operation.
#pragma once

#include <cstdint>
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
  bool isResult() const { return direction == Direction::result; }

 private:
  enum class Direction : std::uint8_t { in, inOut, out, result, unknown };

  static Direction DirectionOf(std::string_view text);
  std::string_view Keyword() const;

  Direction direction;
};

}  // namespace mdktoidl
