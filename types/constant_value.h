// The values of integer constants, followed through constants that name constants.
#pragma once

#include <unordered_set>

#include "host/element.h"

namespace mdktoidl {

enum class ConstantState {
  integer,     ///< the value is known
  notInteger,  ///< the value is missing, of another type, or not a literal
  circular     ///< the constants that it leads to form a circle
};

struct ConstantValue {
  ConstantState state = ConstantState::notInteger;
  long value = 0;  ///< meaningful for `integer` alone
};

using VisitedConstants = std::unordered_set<mdk::IMdeEntity*>;

/// Evaluates a constant: an "IntegerValue" or an "Ident" that leads to another constant. Every
/// constant on the way is added to `visited`. `constant` may be null (`notInteger`).
///
/// What is found is remembered for the run, so that a chain of constants costs its length once;
/// values must not change while a run goes on.
ConstantValue EvaluateConstant(mdk::IMdeEntity* constant, VisitedConstants& visited);

/// Forgets what was remembered; for the beginning and the end of a run.
void ForgetConstants();

}  // namespace mdktoidl
