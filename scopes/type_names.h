// What to call a type that has no name.
#pragma once

#include <string>

#include "tree/node.h"

namespace mdktoidl {

/// The structure of a type as a text: equal for types that mean exactly the same.
std::string StructureOf(const WrittenType& type);

/// What it is inside all sequences and arrays, as a part of a name: "Amount", "ULong", "Fixed9_2".
std::string CoreNameOf(const WrittenType& type);

/// What follows that in the name of the type, from the inside out: "Seq", "SeqSeq10", "Array2x3".
std::string TemplatesNameOf(const WrittenType& type);

}  // namespace mdktoidl
