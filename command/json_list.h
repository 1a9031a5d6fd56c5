// A JSON text around a long list, made without holding the whole of it as a tree.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>
#include <string>

namespace command {

/// The text of a value on one line. What is no UTF-8 becomes U+FFFD.
std::string JsonText(const nlohmann::ordered_json& value);

/// The text of `frame` with items in its list, one a line, and a line end. The list must be empty
/// and stand at the end: nothing but closing brackets may follow it.
std::string JsonWithList(const nlohmann::ordered_json& frame, std::size_t count,
                         const std::function<nlohmann::ordered_json(std::size_t)>& item);

}  // namespace command
