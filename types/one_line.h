// Names from a model as they can be shown: on one line, whatever characters they hold.
#pragma once

#include <string>
#include <string_view>

namespace mdktoidl {

/// The text with control characters written as C escapes ("\n", "\x01"); all else stays.
std::string OneLine(std::string_view text);

/// Whether a text holds a control character of ASCII.
bool HasControl(std::string_view text);

}  // namespace mdktoidl
