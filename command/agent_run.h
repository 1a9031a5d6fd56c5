// Lets the agent export one artifact into a directory.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "command/agent_library.h"
#include "model/element.h"

namespace command {

/// Runs the agent with the directory as the current one, since paths from there are what it can
/// make directories for; it gets the artifact with the targetDir changed to ".". Each piece of its
/// messages goes to `sink`. Throws `Failure` when the directory can't be entered.
void RunAgent(const AgentLibrary& agent, model::Element& artifact,
              const std::filesystem::path& directory,
              const std::function<void(const std::string&)>& sink);

/// True when the file is whole. The agent doesn't notice a full disk, but then its files lack the
/// end.
bool IsComplete(const std::filesystem::path& idl);

}  // namespace command
