// Records what is printed to the host's message output while it lives.
#pragma once

#include <string>
#include <vector>

#include "model/model.h"

namespace support {

class MessageLog {
 public:
  MessageLog() {
    model::SetMessageSink([this](const std::string& text) { pieces_.push_back(text); });
  }
  ~MessageLog() { model::SetMessageSink({}); }
  MessageLog(const MessageLog&) = delete;
  MessageLog& operator=(const MessageLog&) = delete;

  /// One text for each call of `PrintMessage`.
  const std::vector<std::string>& Pieces() const { return pieces_; }

  /// Everything printed so far.
  std::string Text() const {
    std::string all;
    for (const std::string& piece : pieces_) all += piece;
    return all;
  }

 private:
  std::vector<std::string> pieces_;
};

}  // namespace support
