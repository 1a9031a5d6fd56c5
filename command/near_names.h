// Finds the names that a user who mistyped one may have meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace command {

/// At most three of the names, the nearest first and as listed among equals: those that differ from
/// `wanted` in few letters or whose last part is the same but for capitals.
std::vector<std::string> NearNames(std::string_view wanted, const std::vector<std::string>& names);

}  // namespace command
