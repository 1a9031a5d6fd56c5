// Keeps what the agent says about a model, for all who want it as more than text.
//
// The agent prints its texts piece by piece, and the pieces are all that there is: a heading
// ("Error - "), then the message. What is said about the course of the run is left out, unless
// that failed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "command/diagnostic.h"
#include "command/element_finder.h"
#include "xmi/reader.h"

namespace command {

class AgentMessages {
 public:
  struct Message {
    Severity severity;
    std::string text;         ///< Without a full stop.
    bool endsExport = false;  ///< It is the reason why the agent gave up.
  };

  /// Takes one piece of text as the agent printed it.
  void Take(std::string_view piece);

  /// What is wrong, in the order said.
  const std::vector<Message>& All() const { return messages_; }

 private:
  struct Heading;
  static const Heading headings[];

  std::vector<Message> messages_;
  const Heading* heading_ = nullptr;  ///< Of the piece to come.
};

/// The messages with their rules and the places of the elements that they name.
std::vector<Diagnostic> DiagnosticsOf(const AgentMessages& messages, const xmi::Reader& reader,
                                      ElementFinder& finder);

}  // namespace command
