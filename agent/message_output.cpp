#include "agent/message_output.h"

namespace mdktoidl {

mdk::ModelAccess* pOut = nullptr;

void Print(const std::string& text) {
  if (pOut != nullptr) pOut->PrintMessage(text);
}

}  // namespace mdktoidl
