// What a message of the agent is about, told from its text.
//
// The agent says what it has to say as text alone, and its texts are a contract; so the command
// keeps the fixed parts of each, with the rule that it stands for. What the text names is for
// ElementFinder to find.
#pragma once

#include <string_view>

namespace command {

/// What kind of element a message names, as far as its text tells.
enum class Named {
  kNothing,
  kAny,
  kAttribute,
  kOperation,
  kParameter,
  /// A port, by its own name alone.
  kPort,
};

struct MessageMeaning {
  /// The id of a rule, see rules.h; "unclassified" for a text that fits no pattern.
  std::string_view rule;
  Named named = Named::kNothing;
  /// The "::" name of the element, a part of the text; empty when nothing is named.
  std::string_view name = {};
};

/// Recognises a message by its fixed parts. Where a name holds such a part itself, the text decides
/// as far as it can: names are cut at their outermost possible ends, the first of two names at its
/// innermost.
MessageMeaning MeaningOf(std::string_view message);

}  // namespace command
