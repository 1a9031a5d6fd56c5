#include "command/agent_messages.h"

#include <utility>

#include "command/message_patterns.h"

namespace command {
namespace {

/// What the agent says of a failure that has no heading.
constexpr std::string_view failurePrefix = "IDL exporter failed to ";

std::string WithoutStop(std::string_view text) {
  if (text.ends_with('\n')) text.remove_suffix(1);
  if (text.ends_with('.')) text.remove_suffix(1);
  return std::string(text);
}

}  // namespace

struct AgentMessages::Heading {
  std::string_view text;
  Severity severity;
  bool endsExport;
};

const AgentMessages::Heading AgentMessages::headings[] = {
    {"Warning - ", Severity::kWarning, false},
    {"Error - ", Severity::kError, false},
    {"Internal error in IDL exporter agent: ", Severity::kError, true},
    {"API Error in IDL exporter agent: ", Severity::kError, true},
    {"Error in IDL exporter agent: ", Severity::kError, true},
};

void AgentMessages::Take(std::string_view piece) {
  if (heading_ != nullptr) {
    const bool endsExport = heading_->endsExport;
    std::string text = endsExport ? WithoutStop(piece) : std::string(piece);
    messages_.push_back({heading_->severity, std::move(text), endsExport});
    heading_ = nullptr;
    return;
  }
  for (const Heading& heading : headings) {
    if (piece == heading.text) heading_ = &heading;
  }
  if (piece.starts_with(failurePrefix)) {
    messages_.push_back({Severity::kError, WithoutStop(piece)});
  }
}

std::vector<Diagnostic> DiagnosticsOf(const AgentMessages& messages, const xmi::Reader& reader,
                                      ElementFinder& finder) {
  constexpr std::string_view unclassified = "unclassified";
  std::vector<Diagnostic> diagnostics;
  for (const AgentMessages::Message& message : messages.All()) {
    const MessageMeaning meaning = MeaningOf(message.text);
    const bool isReason = message.endsExport && meaning.rule == unclassified;
    Diagnostic& diagnostic = diagnostics.emplace_back();
    diagnostic.severity = message.severity;
    diagnostic.text = (message.endsExport ? "export aborted: " : "") + message.text;
    diagnostic.rule = isReason ? "export-aborted" : meaning.rule;
    PointAt(reader, finder.Find(meaning), diagnostic);
  }
  return diagnostics;
}

}  // namespace command
