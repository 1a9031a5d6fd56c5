// Names that are written without their scope where IDL doesn't find them.
#pragma once

#include "checks/declarations.h"

namespace checks {

void CheckVisibility(const Root& root, Found& found);

}  // namespace checks
