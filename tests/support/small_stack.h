// Runs something on a stack of limited size, so that a recursion that a model decides ends in a
// crash.
#pragma once

#include <functional>

namespace support {

/// Calls `run` in a thread with a small stack and waits for its end.
void OnSmallStack(const std::function<void()>& run);

}  // namespace support
