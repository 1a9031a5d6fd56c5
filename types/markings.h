// The stereotypes and keywords that decide what a model element becomes.
#pragma once

#include "types/marking.h"

namespace mdktoidl::markings {

inline const Marking manifest("manifest");
inline const Marking corbaModule("CORBAModule");
inline const Marking corbaInterface("CORBAInterface");
inline const Marking idlFile("IDLFile");
inline const Marking corbaArtifact("CORBAArtifact");
inline const Marking corbaEnum("CORBAEnum");
inline const Marking corbaException("CORBAException");
inline const Marking corbaStruct("CORBAStruct");

}  // namespace mdktoidl::markings
