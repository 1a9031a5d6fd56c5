// The whole command: read a model, choose an artifact, let the agent export it.
#pragma once

namespace command {

/// Does what the command line asks for; returns the exit status. Throws nothing.
int Run(int argc, const char* const* argv);

}  // namespace command
