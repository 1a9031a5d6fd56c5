// What the host library gives the agent: its message output, its last error and its changer.
#pragma once

#include <string>

#include "host/element.h"

namespace mdk {

/// The host's message output.
class ModelAccess {
 public:
  /// Appends the text to the host's message output as it stands; no line end is added.
  virtual void PrintMessage(const std::string& text) = 0;

 protected:
  ~ModelAccess() = default;
};

/// The host's model access object, borrowed; null when the host has none to offer.
ModelAccess* GetModelAccess();

/// The text of the last host call that failed, also returned; empty when none did. Never null.
const char* GetAPIErrorMessage(const char*& text);

}  // namespace mdk

namespace mdkdll {

/// The changer that the agent passes to every call that changes the model.
extern mdk::Changer& defaultChanger;

}  // namespace mdkdll
