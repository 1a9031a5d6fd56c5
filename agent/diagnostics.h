// The diagnostics of a run: what is wrong with the model, which message says so, and where.
//
// Checking never stops an export. Each violated rule appends one diagnostic to a list, and the list
// is the severity: any error keeps the IDL from being written, a warning doesn't. The
// texts themselves stand in messages.cpp.
#pragma once

#include <initializer_list>
#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "agent/messages.h"
#include "host/element.h"

namespace mdktoidl {

/// An element that a diagnostic is about as well: the other end of a clash, a step of a circle.
struct RelatedElement {
  mdk::IMdeEntity* element;  ///< borrowed; never null
  std::string text;          ///< what is to be seen there, without a full stop
};

struct Diagnostic {
  Message message;
  /// The element that it is about, borrowed from the host; null when it is about none.
  mdk::IMdeEntity* element = nullptr;
  /// What the gaps of the message's text are filled with, one for each.
  std::vector<std::string> pieces = {};
  std::vector<RelatedElement> related = {};
};

/// The diagnostic as the user reads it.
std::string TextOf(const Diagnostic& diagnostic);

/// What was found in this run, in the order found; all are empty between runs.
extern std::list<Diagnostic> errors;
extern std::list<Diagnostic> warnings;
/// What only an observer hears of.
extern std::list<Diagnostic> remarks;

/// Appends a diagnostic to the list of its message's severity, which is no fatal one; to none when
/// that is silent.
void Report(Diagnostic diagnostic);
void Report(Message message, mdk::IMdeEntity* element,
            std::initializer_list<std::string_view> pieces);

/// Tells the user at once, on a line of its own, instead of with the lists.
void Tell(const Diagnostic& diagnostic);

/// Tells an observer at once, if there is one; for a repair that is found when the lists are told.
void TellObserver(const Diagnostic& diagnostic);

/// Sorts both lists by their texts, removes duplicates, and prints the warnings, the errors and, if
/// there was any, a summary. The summary has no line end, so what is printed next continues its
/// line. A text that several elements have is printed once; the observer hears of each, and then of
/// the remarks.
void PrintMessages();

/// Empties all lists.
void ClearMessages();

}  // namespace mdktoidl
