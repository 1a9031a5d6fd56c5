// The grammar of components, homes, event types and compositions, for which no compiler is at hand.
#pragma once

#include <string>

namespace support {

/// Holds the components, homes, event types and compositions in an IDL text against their grammar.
/// Returns "" when they obey it, else the first that doesn't.
std::string GrammarFault(const std::string& idl);

}  // namespace support
