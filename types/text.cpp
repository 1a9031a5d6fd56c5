#include "types/text.h"

#include <cerrno>
#include <cstdlib>

namespace mdktoidl {

std::string_view TrimEndOfString(std::string_view text) {
  return text.substr(0, text.find_last_not_of(" \t\n\r") + 1);
}

long GetLong(const std::string& text) {
  constexpr int decimal = 10;
  return std::strtol(text.c_str(), nullptr, decimal);
}

std::optional<long> IntegerLiteral(const std::string& text) {
  constexpr int byPrefix = 0;
  if (text.empty() || text.find_first_of(" \t\n\r\v\f") != std::string::npos) return std::nullopt;
  char* end = nullptr;
  errno = 0;
  const long value = std::strtol(text.c_str(), &end, byPrefix);
  if (errno != 0 || end != text.c_str() + text.size()) return std::nullopt;
  return value;
}

}  // namespace mdktoidl
