// All that a part of a model holds, as one text: to tell whether a run changed it.
#pragma once

#include <initializer_list>
#include <string>

#include "model/element.h"

namespace support {

/// What is left out of a snapshot: tags of other exporters, which a finished run removes.
enum class Omit { kNothing, kNodeTags };

/// Every property of the elements and of all that they lead to, in an order that only the model
/// decides.
std::string Snapshot(std::initializer_list<model::Element*> starts, Omit omit = Omit::kNothing);

}  // namespace support
