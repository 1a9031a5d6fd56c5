// Relationships of which a declaration may have one only.
#pragma once

#include <string>

#include "tree/node.h"

namespace mdktoidl {

/// The node that the client dependency with a stereotype leads to; null when there is none, or when
/// what it leads to is not part of the export. When there are several, the first counts, and `more`
/// is reported for `client`.
Node* SingleSupplier(const Node& client, const std::string& stereotype, Message more);

}  // namespace mdktoidl
