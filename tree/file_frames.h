// The files of modules that use each other: what they include where, and what they declare before.
#pragma once

#include "tree/precedence.h"

namespace mdktoidl {

/// Where each module has a file, makes each such that it may be read first, and gives the main file
/// what it uses, or all when it has nothing of its own. Files whose plain form is such keep it.
/// Reports files that need each other complete.
void FrameFiles(Root& root, Precedence& precedence);

}  // namespace mdktoidl
