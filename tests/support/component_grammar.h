// The grammar of components, homes, event types and compositions, for which no compiler is at hand.
#pragma once

#include <string>

namespace support {

/// Holds the declarations of an IDL text against that grammar. Returns "" when they obey it, else
/// what was expected where. Other declarations are only skipped: an IDL compiler judges those.
std::string GrammarFault(const std::string& idl);

}  // namespace support
