// The host's message output, where all that the agent says goes.
#pragma once

#include <string>

#include "host/model_access.h"

namespace mdktoidl {

/// The host's model access object; set when the host loads the agent or an export begins, null
/// before.
extern mdk::ModelAccess* pOut;

/// Prints one piece of text as it stands. Does nothing without a model access object.
void Print(const std::string& text);

}  // namespace mdktoidl
