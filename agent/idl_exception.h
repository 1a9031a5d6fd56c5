// The abort of an export: thrown when further work would be meaningless, caught by the run alone.
#pragma once

#include <exception>
#include <utility>

#include "agent/diagnostics.h"

namespace mdktoidl {

/// Carries a diagnostic whose message is fatal: the user reads its text after "Internal error in
/// IDL exporter agent: ".
class IDLException : public std::exception {
 public:
  explicit IDLException(Diagnostic reason) : reason_(std::move(reason)), text_(TextOf(reason_)) {}

  const Diagnostic& Reason() const { return reason_; }
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  Diagnostic reason_;
  std::string text_;
};

}  // namespace mdktoidl
