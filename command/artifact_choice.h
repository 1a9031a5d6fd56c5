// Finds the artifact that an export is for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/element.h"
#include "xmi/reader.h"

namespace command {

/// The artifacts that carry the generator's settings, in document order.
std::vector<model::Element*> ExportableArtifacts(const xmi::Reader& reader);

/// The name to list an artifact by, which also chooses it: its qualified name, or its xmi:id when
/// it has no name of its own or one that doesn't fit on a line.
std::string NameOf(const xmi::Reader& reader, const model::Element& artifact);

/// The artifact of that name or xmi:id, whether or not it is exportable: the agent says what it
/// lacks. Without a name the only exportable one. Throws `Failure` when there is no such artifact
/// or more than one.
model::Element& ChooseArtifact(const xmi::Reader& reader, const std::optional<std::string>& name);

}  // namespace command
