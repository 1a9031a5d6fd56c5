// The abort of an export: thrown when further work would be meaningless, caught by the run alone.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace mdktoidl {

/// Carries the text that the user reads after "Internal error in IDL exporter agent: ".
class IDLException : public std::exception {
 public:
  explicit IDLException(std::string message) : message_(std::move(message)) {}
  const char* what() const noexcept override { return message_.c_str(); }

 private:
  std::string message_;
};

}  // namespace mdktoidl
