// Multiplicities of typed elements as sequence bounds.
#pragma once

#include <optional>
#include <string>

#include "agent/messages.h"
#include "host/element.h"

namespace mdktoidl {

/// What the multiplicity of an element makes of its type.
struct Multiplicity {
  /// It makes a sequence of it; false for a single value, and when the multiplicity is faulty.
  bool isCollection = false;
  /// The number that bounds the sequence; empty for none, and where `isBoundNamed`.
  std::string bound;
  /// The bound is written as the name of `constant`.
  bool isBoundNamed = false;
  /// A constant gives the bound, named or not. It may be null all the same: the model names one
  /// that it doesn't hold.
  bool hasConstant = false;
  mdk::IMdeEntity* constant = nullptr;
  /// What is wrong with it. The piece of the message is the declaration with its construct word.
  std::optional<Message> fault;
};

Multiplicity GetMultiplicity(mdk::IMdeEntity* element);

}  // namespace mdktoidl
