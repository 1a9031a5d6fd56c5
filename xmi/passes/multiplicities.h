// Gives properties and parameters their multiplicities and default values.
#pragma once

#include <map>
#include <utility>

#include "xmi/passes/values.h"
#include "xmi/tables/reading.h"

namespace xmi {

class Multiplicities {
 public:
  Multiplicities(Reading& reading, Values& values) : reading_(reading), values_(values) {}

  /// Works off the value specifications of all elements.
  void Set();

 private:
  struct Given {
    const ValueNode* lower = nullptr;
    const ValueNode* upper = nullptr;
    const ValueNode* standard = nullptr;
  };

  void SetFor(ItemIndex item, const Given& given);
  Bound ReadBound(ItemIndex item, const ValueNode* value, const char* name);
  void SetRange(ItemIndex item, const Bound& lower, const Bound& upper);

  Reading& reading_;
  Values& values_;
  std::map<std::pair<model::Element*, model::Element*>, model::Element*> ranges_;
};

}  // namespace xmi
