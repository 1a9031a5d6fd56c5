// Puts the items into the order in which their elements stand in the model.
//
// Files are read one after the other, but what one file holds may stand in the middle of another.
// From here on a loop over the items meets it there, so the lists that such loops make are in
// order.
#pragma once

#include <vector>

#include "xmi/tables/reading.h"

namespace xmi {

/// Where the root of a file stands in another.
struct Placement {
  ItemIndex place;
  ItemIndex root;
};

/// Moves roots with all that is in them behind their places. Every index of an item in the reading
/// is changed accordingly; there may be no links yet.
void RestoreDocumentOrder(Reading& reading, const std::vector<Placement>& placements);

}  // namespace xmi
