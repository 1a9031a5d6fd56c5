// What typed elements answer about their types.
#pragma once

#include <vector>

#include "xmi/tables/reading.h"

namespace xmi {

class Types {
 public:
  explicit Types(Reading& reading) : reading_(reading) {}

  /// Gives a property or parameter its type.
  void Set(ItemIndex typed, ItemIndex type);
  /// The "Ident" that designates an element; the same for all that refer to it.
  model::Element& IdentOf(ItemIndex designated);

 private:
  Reading& reading_;
  std::vector<model::Element*> idents_;  // by item
};

}  // namespace xmi
