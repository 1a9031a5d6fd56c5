// The words that IDL keeps for itself.
#pragma once

#include <string_view>

namespace command {

/// The keyword that a name is, or differs from in nothing but capitals; empty when it is none. IDL
/// forbids both. `isImplementation` adds the words of the component implementation language, which
/// are keywords only in a file that holds a composition.
std::string_view KeywordLike(std::string_view name, bool isImplementation);

}  // namespace command
