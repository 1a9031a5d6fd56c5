// How a call of the model API fails.
#pragma once

#include <string>

namespace model {

/// Keeps the text for `mdk::GetAPIErrorMessage` and throws it as a `const char*`, which is valid
/// until the next failure.
[[noreturn]] void Fail(std::string text);

}  // namespace model
