#include "diagnostics/colour.h"

#include <unistd.h>

#include <cstdlib>

#include "agent/messages.h"

namespace diagnostics {
namespace {

constexpr std::string_view boldRed = "\x1b[1;31m";
constexpr std::string_view boldMagenta = "\x1b[1;35m";
constexpr std::string_view boldCyan = "\x1b[1;36m";
constexpr std::string_view plain = "\x1b[m";

/// A piece of the agent's text that says how grave the rest is, and the word in it that does.
struct MarkedPiece {
  std::string_view text;
  std::string_view word;
  Severity severity;
};

constexpr MarkedPiece markedPieces[] = {
    {mdktoidl::headings::warning, "Warning", Severity::kWarning},
    {mdktoidl::headings::error, "Error", Severity::kError},
    {mdktoidl::headings::internalError, "Internal error", Severity::kError},
    {mdktoidl::headings::hostError, "API Error", Severity::kError},
    {mdktoidl::headings::otherError, "Error", Severity::kError},
    {mdktoidl::headings::aborted, "IDL exporter aborted.", Severity::kError},
};

}  // namespace

std::optional<ColourMode> ColourModeOf(std::string_view word) {
  if (word == "auto") return ColourMode::kAuto;
  if (word == "always") return ColourMode::kAlways;
  if (word == "never") return ColourMode::kNever;
  return std::nullopt;
}

bool UsesColour(ColourMode mode, const ColourSurroundings& surroundings) {
  if (mode != ColourMode::kAuto) return mode == ColourMode::kAlways;
  const std::string_view term = surroundings.term == nullptr ? "" : surroundings.term;
  const std::string_view noColour = surroundings.noColour == nullptr ? "" : surroundings.noColour;
  return surroundings.isTerminal && !term.empty() && term != "dumb" && noColour.empty();
}

bool UsesColour(ColourMode mode, int stream) {
  return UsesColour(mode, {isatty(stream) == 1, std::getenv("TERM"), std::getenv("NO_COLOR")});
}

std::string Coloured(std::string_view text, Severity severity) {
  constexpr std::string_view colours[] = {boldCyan, boldMagenta, boldRed};
  std::string coloured(colours[static_cast<std::size_t>(severity)]);
  return coloured.append(text).append(plain);
}

std::string ColouredPiece(std::string_view piece) {
  std::string text(piece);
  for (const auto& [marked, word, severity] : markedPieces) {
    if (piece == marked) text.replace(piece.find(word), word.size(), Coloured(word, severity));
  }
  return text;
}

}  // namespace diagnostics
