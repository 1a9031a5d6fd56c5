// Random models that need make no sense: any metaclass, any marking, any reference to anything.
#pragma once

#include "model/model.h"
#include "tests/support/choices.h"

namespace support {

/// Fills a model and returns an artifact in it, whose files go below "out". Elements are owned
/// several times or by themselves, properties lead to elements that don't belong there, names are
/// empty, huge or the same, and settings are missing.
model::Element& GenerateWildModel(model::Model& model, Choices& choices);

}  // namespace support
