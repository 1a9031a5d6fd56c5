// The properties, metaclasses and stereotypes that the command asks elements for.
#pragma once

#include "model/symbol.h"

namespace command::words {

using model::Symbol;

// Properties.
inline const Symbol actualTemplateParameter{"ActualTemplateParameter"};
inline const Symbol clientDependency{"ClientDependency"};
inline const Symbol composite{"composite"};
inline const Symbol defaultValue{"DefaultValue"};
inline const Symbol definition{"Definition"};
inline const Symbol direction{"Direction"};
inline const Symbol generalization{"Generalization"};
inline const Symbol literal{"Literal"};
inline const Symbol multiplicity{"Multiplicity"};
inline const Symbol name{"Name"};
inline const Symbol ownedMember{"OwnedMember"};
inline const Symbol parameter{"Parameter"};
inline const Symbol parent{"Parent"};
inline const Symbol raisedException{"RaisedException"};
inline const Symbol realized{"Realized"};
inline const Symbol required{"Required"};
inline const Symbol supplier{"Supplier"};
inline const Symbol targetType{"Target:Type"};
inline const Symbol type{"Type"};
inline const Symbol upperBound{"UpperBound"};
inline const Symbol valueString{"ValueString"};
inline const Symbol visibility{"Visibility"};

// Metaclasses.
inline const Symbol artifact{"Artifact"};
inline const Symbol attribute{"Attribute"};
inline const Symbol classMetaclass{"Class"};
inline const Symbol dataType{"DataType"};
inline const Symbol interface { "Interface" };
inline const Symbol operation{"Operation"};
inline const Symbol package{"Package"};
inline const Symbol port{"Port"};
inline const Symbol signal{"Signal"};
inline const Symbol syntype{"Syntype"};
inline const Symbol templateInstantiation{"TemplateInstantiation"};

// Stereotypes and keywords.
inline const Symbol corbaAttribute{"CORBAAttribute"};
inline const Symbol corbaBoxedValue{"CORBABoxedValue"};
inline const Symbol corbaComponent{"CORBAComponent"};
inline const Symbol corbaComponentImpl{"CORBAComponentImpl"};
inline const Symbol corbaEnum{"CORBAEnum"};
inline const Symbol corbaEvent{"CORBAEvent"};
inline const Symbol corbaEventSink{"CORBAEventSink"};
inline const Symbol corbaEventSource{"CORBAEventSource"};
inline const Symbol corbaException{"CORBAException"};
inline const Symbol corbaFacet{"CORBAFacet"};
inline const Symbol corbaFactory{"CORBAFactory"};
inline const Symbol corbaFinder{"CORBAFinder"};
inline const Symbol corbaHome{"CORBAHome"};
inline const Symbol corbaHomeImpl{"CORBAHomeImpl"};
inline const Symbol corbaImplements{"CORBAImplements"};
inline const Symbol corbaInterface{"CORBAInterface"};
inline const Symbol corbaManages{"CORBAManages"};
inline const Symbol corbaModule{"CORBAModule"};
inline const Symbol corbaPrimaryKey{"CORBAPrimaryKey"};
inline const Symbol corbaReceptacle{"CORBAReceptacle"};
inline const Symbol corbaSegment{"CORBASegment"};
inline const Symbol corbaSequence{"CORBASequence"};
inline const Symbol corbaStruct{"CORBAStruct"};
inline const Symbol corbaTypedef{"CORBATypedef"};
inline const Symbol corbaUnion{"CORBAUnion"};
inline const Symbol corbaValue{"CORBAValue"};
inline const Symbol corbaValueFactory{"CORBAValueFactory"};
inline const Symbol idlFile{"IDLFile"};
inline const Symbol manifest{"manifest"};
inline const Symbol unionCase{"case"};

}  // namespace command::words
