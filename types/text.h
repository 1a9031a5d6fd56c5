// Small text helpers that the constructs share.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mdktoidl {

/// The text without its trailing blanks, tabs, line feeds and carriage returns; a part of it.
std::string_view TrimEndOfString(std::string_view text);

/// The text read as a decimal number, as far as it is one; 0 when it doesn't begin with one.
long GetLong(const std::string& text);

/// The value of an integer literal of IDL, decimal, octal or hexadecimal, with an optional sign;
/// nothing when the text is anything else or out of range.
std::optional<long> IntegerLiteral(const std::string& text);

}  // namespace mdktoidl
