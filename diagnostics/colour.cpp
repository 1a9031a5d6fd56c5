#include "diagnostics/colour.h"

#include <unistd.h>

#include <cstdlib>

namespace diagnostics {
namespace {

constexpr std::string_view boldRed = "\x1b[1;31m";
constexpr std::string_view boldMagenta = "\x1b[1;35m";
constexpr std::string_view plain = "\x1b[m";

/// A piece that says something by itself: its coloured word, and what stands around it.
struct MarkedPiece {
  std::string_view before;
  std::string_view word;
  std::string_view after;
  Severity severity;
};

constexpr MarkedPiece markedPieces[] = {
    {"", "Warning", " - ", Severity::kWarning},
    {"", "Error", " - ", Severity::kError},
    {"", "Internal error", " in IDL exporter agent: ", Severity::kError},
    {"", "API Error", " in IDL exporter agent: ", Severity::kError},
    {"", "Error", " in IDL exporter agent: ", Severity::kError},
    {"\n", "IDL exporter aborted.", "\n", Severity::kError},
};

bool Is(std::string_view piece, const MarkedPiece& marked) {
  return piece.size() == marked.before.size() + marked.word.size() + marked.after.size() &&
         piece.starts_with(marked.before) && piece.ends_with(marked.after) &&
         piece.substr(marked.before.size()).starts_with(marked.word);
}

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
  std::string coloured(severity == Severity::kError ? boldRed : boldMagenta);
  return coloured.append(text).append(plain);
}

std::string ColouredPiece(std::string_view piece) {
  for (const MarkedPiece& marked : markedPieces) {
    if (!Is(piece, marked)) continue;
    std::string coloured(marked.before);
    return coloured.append(Coloured(marked.word, marked.severity)).append(marked.after);
  }
  return std::string(piece);
}

}  // namespace diagnostics
