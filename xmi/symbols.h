// The names under which the reader puts things into the model.
#pragma once

#include "model/symbol.h"

namespace xmi::symbols {

using model::Symbol;

// Properties.
inline const Symbol name{"Name"};
inline const Symbol owner{"Owner"};
inline const Symbol uri{"Uri"};
inline const Symbol ownedMember{"OwnedMember"};
inline const Symbol visibility{"Visibility"};
inline const Symbol changeability{"Changeability"};
inline const Symbol isAbstract{"IsAbstract"};
inline const Symbol isAbstractLower{"isAbstract"};
inline const Symbol direction{"Direction"};
inline const Symbol parameter{"Parameter"};
inline const Symbol raisedException{"RaisedException"};
inline const Symbol literal{"Literal"};
inline const Symbol generalization{"Generalization"};
inline const Symbol parent{"Parent"};
inline const Symbol comment{"Comment"};
inline const Symbol text{"Text"};
inline const Symbol clientDependency{"ClientDependency"};
inline const Symbol client{"Client"};
inline const Symbol supplier{"Supplier"};
inline const Symbol realized{"Realized"};
inline const Symbol required{"Required"};
inline const Symbol type{"Type"};
inline const Symbol targetType{"Target:Type"};
inline const Symbol definition{"Definition"};
inline const Symbol multiplicity{"Multiplicity"};
inline const Symbol lowerBound{"LowerBound"};
inline const Symbol upperBound{"UpperBound"};
inline const Symbol defaultValue{"DefaultValue"};
inline const Symbol valueString{"ValueString"};
inline const Symbol instanceOf{"InstanceOf"};
inline const Symbol stereotypeInstance{"StereotypeInstance"};
inline const Symbol actualTemplateParameter{"ActualTemplateParameter"};
inline const Symbol signal{"Signal"};

// Metaclasses.
inline const Symbol package{"Package"};
inline const Symbol classClass{"Class"};
inline const Symbol interface { "Interface" };
inline const Symbol dataType{"DataType"};
inline const Symbol ident{"Ident"};
inline const Symbol templateInstantiation{"TemplateInstantiation"};
inline const Symbol openRange{"OpenRange"};
inline const Symbol integerValue{"IntegerValue"};
inline const Symbol realValue{"RealValue"};
inline const Symbol booleanValue{"BooleanValue"};
inline const Symbol characterValue{"CharacterValue"};
inline const Symbol charstringValue{"CharstringValue"};
inline const Symbol opaqueExpression{"OpaqueExpression"};

// Stereotypes and tags.
inline const Symbol corba{"CORBA"};
inline const Symbol corbaAttribute{"CORBAAttribute"};
inline const Symbol corbaTypedef{"CORBATypedef"};
inline const Symbol corbaValue{"CORBAValue"};
inline const Symbol corbaComponent{"CORBAComponent"};
inline const Symbol corbaHome{"CORBAHome"};
inline const Symbol isConstant{"isConstant"};

}  // namespace xmi::symbols
