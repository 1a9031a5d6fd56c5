// A state member of a value type.
#pragma once

#include "tree/attribute.h"

namespace mdktoidl {

class State : public Attribute {
 public:
  using Attribute::Attribute;

  void Unparse(std::ofstream& out) override;
};

}  // namespace mdktoidl
