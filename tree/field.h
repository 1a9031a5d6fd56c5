// A member of a struct or an exception.
#pragma once

#include "tree/attribute.h"

namespace mdktoidl {

class Field : public Attribute {
 public:
  using Attribute::Attribute;

  void Unparse(std::ofstream& out) override;
};

}  // namespace mdktoidl
