// Random models that are correct: their IDL must be accepted by an IDL compiler.
#pragma once

#include <vector>

#include "tests/support/choices.h"
#include "tests/support/model_builder.h"

namespace support {

struct ValidModel {
  std::vector<Element*> modules;  ///< at the top
  /// Every module, wherever it stands: the order of its members is the modeller's.
  std::vector<Element*> scopes;
};

/// Builds modules with declarations of most kinds. What a declaration uses stands before it, with
/// one exception: interfaces in a ring use each other. Two things are kept out, because the order
/// of declarations decides about them: interfaces that use, directly or not, what is derived from
/// them (a derived interface may be written before its base), and rings with types inside their
/// interfaces.
ValidModel GenerateValidModel(ModelBuilder& builder, Choices& choices);

/// Puts the members of all modules into another order.
void ShuffleMembers(const ValidModel& model, Choices& choices);

}  // namespace support
