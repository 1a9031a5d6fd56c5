// Comments of model elements as line comments of IDL.
#pragma once

#include "host/element.h"
#include "output/layout.h"

namespace mdktoidl {

/// Writes every comment of the element, each of its lines on a line of its own. Nothing, not even
/// a line end, for an element without comments. But for the plain form, lines are changed that
/// compilers would take for more than a comment; true when there were such.
bool WriteComments(mdk::IMdeEntity* element, Writer& out);

}  // namespace mdktoidl
