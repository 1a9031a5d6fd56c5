// Tells a build which files an export was made from.
#pragma once

#include <span>
#include <string>

namespace command {

/// A rule in the syntax of make: the target depends on the files. Each file gets a rule without
/// anything to do as well, so that a build doesn't stop when a file is no longer there.
std::string MakeRule(const std::string& target, std::span<const std::string> files);

}  // namespace command
