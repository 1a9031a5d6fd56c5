// The stereotypes and keywords that decide what a model element becomes.
#pragma once

#include "types/marking.h"

namespace mdktoidl::markings {

inline const Marking manifest("manifest");
inline const Marking corbaModule("CORBAModule");
inline const Marking corbaInterface("CORBAInterface");
inline const Marking idlFile("IDLFile");
inline const Marking corbaArtifact("CORBAArtifact");
inline const Marking corbaBoxedValue("CORBABoxedValue");
inline const Marking corbaComponent("CORBAComponent");
inline const Marking corbaComponentImpl("CORBAComponentImpl");
inline const Marking corbaEnum("CORBAEnum");
inline const Marking corbaEvent("CORBAEvent");
inline const Marking corbaException("CORBAException");
inline const Marking corbaHome("CORBAHome");
inline const Marking corbaHomeImpl("CORBAHomeImpl");
inline const Marking corbaSegment("CORBASegment");
inline const Marking corbaSequence("CORBASequence");
inline const Marking corbaStruct("CORBAStruct");
inline const Marking corbaTypedef("CORBATypedef");
inline const Marking corbaUnion("CORBAUnion");
inline const Marking corbaValue("CORBAValue");
inline const Marking unionCase("'case'");

}  // namespace mdktoidl::markings
