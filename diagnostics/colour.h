// Colours for a terminal: whether to use them, and the words that get them.
//
// Without colour nothing of this touches a text, so what scripts read stays the same bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "diagnostics/diagnostic.h"

namespace diagnostics {

/// What the user asked for.
enum class ColourMode {
  /// Colours where a person is likely to read.
  kAuto,
  kAlways,
  kNever,
};

/// The mode of a word on the command line ("auto", "always", "never"); nothing for another word.
std::optional<ColourMode> ColourModeOf(std::string_view word);

/// What "auto" depends on. Null stands for a variable that isn't set.
struct ColourSurroundings {
  bool isTerminal = false;
  /// The kind of terminal; none, or "dumb", for one that may know no colours.
  const char* term = nullptr;
  /// Any text but the empty one asks all programs to print no colours.
  const char* noColour = nullptr;
};

bool UsesColour(ColourMode mode, const ColourSurroundings& surroundings);

/// The same for a stream of this process, by its file descriptor.
bool UsesColour(ColourMode mode, int stream);

/// The text in bold and red or magenta.
std::string Coloured(std::string_view text, Severity severity);

/// A piece of the agent's text with the word that tells of a failure coloured; the piece itself
/// when there is none.
std::string ColouredPiece(std::string_view piece);

}  // namespace diagnostics
