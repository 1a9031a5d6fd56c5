// One model that holds every construct once, with everything that a construct may refer to.
#pragma once

#include "tests/support/model_builder.h"

namespace support {

/// Builds it; returns an artifact that manifests it and whose files go below "out".
Element& BuildRichModel(ModelBuilder& builder, std::string_view fileMapping = "ONE_FILE");

}  // namespace support
