// Collects the entries of a multi-valued property of many elements, then stores each list once.
//
// Entries are put down in any order of owners and keep their order within each owner. So no list
// grows in the model, and the work is proportional to the entries.
#pragma once

#include <cstddef>
#include <vector>

#include "model/symbol.h"
#include "xmi/tables/reading.h"

namespace xmi {

class Lists {
 public:
  void Add(ItemIndex owner, model::Element* entry) { entries_.push_back({owner, entry}); }
  /// Gives every owner its list.
  void Store(Reading& reading, model::Symbol property);

 private:
  struct Entry {
    ItemIndex owner;
    model::Element* element;
  };
  std::vector<Entry> entries_;
};

}  // namespace xmi
