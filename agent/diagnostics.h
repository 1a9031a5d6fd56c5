// The diagnostics of a run: what the checks found wrong with the model, as complete texts.
//
// Checking never stops an export. Each violated rule appends one text to one of two lists, and the
// list is the severity: any error keeps the IDL from being written, a warning doesn't. The texts
// themselves stand in messages.h.
#pragma once

#include <initializer_list>
#include <list>
#include <string>
#include <string_view>

#include "agent/messages.h"

namespace mdktoidl {

/// What was found in this run, in the order found; both are empty between runs.
extern std::list<std::string> errors;
extern std::list<std::string> warnings;

/// The text of a message: each "{}" replaced by the next of `pieces`, one piece for each.
std::string Compose(Message message, std::initializer_list<std::string_view> pieces);

/// Appends a message to the list of its severity.
void Report(Message message, std::initializer_list<std::string_view> pieces);

/// Sorts both lists, removes duplicates, and prints the warnings, the errors and, if there was any,
/// a summary. The summary has no line end, so what is printed next continues its line.
void PrintMessages();

/// Empties both lists.
void ClearMessages();

}  // namespace mdktoidl
