// Loads the export agent as a library, as any host of it does.
#pragma once

#include "host/element.h"

namespace command {

/// The agent's two entries. The library stays loaded until the process ends.
class AgentLibrary {
 public:
  /// Loads the library from the folder that holds the model's library, with which this command was
  /// started. Throws `Failure` when it is not there or is no agent.
  AgentLibrary();

  /// Exports the artifact; what the agent has to say goes to the model's message sink.
  void Export(mdk::IMdeEntity& artifact) const;

 private:
  using PortSetter = void();
  using Exporter = void(void*, void*, mdk::IMdeEntity*);

  PortSetter* setPort_ = nullptr;
  Exporter* export_ = nullptr;
};

}  // namespace command
