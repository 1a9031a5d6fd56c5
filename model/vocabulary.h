// The names by which a host's model speaks of itself: what elements are, what they answer, what
// marks them.
//
// Whoever fills or asks a model takes its names from here, so that each is spelled in one place.
// Metaclasses that carry UML's own name and are never asked for have none here.
#pragma once

#include <string_view>

#include "model/symbol.h"

namespace model {

/// What an element is.
namespace metaclasses {
inline const Symbol artifact("Artifact");
inline const Symbol attribute("Attribute");
inline const Symbol booleanValue("BooleanValue");
inline const Symbol characterValue("CharacterValue");
inline const Symbol charstringValue("CharstringValue");
inline const Symbol class_("Class");
inline const Symbol comment("Comment");
inline const Symbol dataType("DataType");
inline const Symbol dependency("Dependency");
inline const Symbol enumerationLiteral("EnumerationLiteral");
inline const Symbol generalization("Generalization");
inline const Symbol ident("Ident");
inline const Symbol integerValue("IntegerValue");
inline const Symbol interface("Interface");
inline const Symbol keyword("Keyword");
inline const Symbol listExpr("ListExpr");
inline const Symbol opaqueExpression("OpaqueExpression");
inline const Symbol openRange("OpenRange");
inline const Symbol operation("Operation");
inline const Symbol package("Package");
inline const Symbol parameter("Parameter");
inline const Symbol port("Port");
inline const Symbol realValue("RealValue");
inline const Symbol session("Session");
inline const Symbol signal("Signal");
inline const Symbol stereotype("Stereotype");
inline const Symbol stereotypeInstance("StereotypeInstance");
inline const Symbol tagDefaults("TagDefaults");
inline const Symbol taggedValue("TaggedValue");
inline const Symbol templateInstantiation("TemplateInstantiation");
}  // namespace metaclasses

/// What an element answers.
namespace properties {
inline const Symbol actualTemplateParameter("ActualTemplateParameter");
inline const Symbol answersFor("AnswersFor");  // of a stereotype: itself and what it specialises
inline const Symbol changeability("Changeability");
inline const Symbol client("Client");
inline const Symbol clientDependency("ClientDependency");
inline const Symbol comment("Comment");
inline const Symbol defaultValue("DefaultValue");
inline const Symbol definition("Definition");
inline const Symbol direction("Direction");
inline const Symbol expression("Expression");
inline const Symbol generalization("Generalization");
inline const Symbol instance("Instance");  // of a stereotype: its applications
inline const Symbol instanceOf("InstanceOf");
inline const Symbol isAbstract("IsAbstract");
inline const Symbol isAbstractInSmall("isAbstract");  // the agent asks for both spellings
inline const Symbol keyword("Keyword");
inline const Symbol literal("Literal");
inline const Symbol lowerBound("LowerBound");
inline const Symbol multiplicity("Multiplicity");
inline const Symbol name("Name");
inline const Symbol ownedMember("OwnedMember");
inline const Symbol owner("Owner");
inline const Symbol parameter("Parameter");
inline const Symbol parent("Parent");
inline const Symbol raisedException("RaisedException");
inline const Symbol realized("Realized");
inline const Symbol required("Required");
inline const Symbol session("Session");
inline const Symbol signal("Signal");
inline const Symbol stereotypeInstance("StereotypeInstance");
inline const Symbol supplier("Supplier");
inline const Symbol tagDefaults("TagDefaults");
inline const Symbol targetType("Target:Type");
inline const Symbol text("Text");
inline const Symbol type("Type");
inline const Symbol upperBound("UpperBound");
inline const Symbol uri("Uri");
inline const Symbol value("Value");
inline const Symbol valueString("ValueString");
inline const Symbol visibility("Visibility");
}  // namespace properties

/// What marks an element: stereotypes of the profile.
namespace stereotypes {
inline const Symbol corba("CORBA");  // what all marks of declarations specialise
inline const Symbol corbaAttribute("CORBAAttribute");
inline const Symbol corbaBoxedValue("CORBABoxedValue");
inline const Symbol corbaComponent("CORBAComponent");
inline const Symbol corbaComponentImpl("CORBAComponentImpl");
inline const Symbol corbaConstants("CORBAConstants");
inline const Symbol corbaEnum("CORBAEnum");
inline const Symbol corbaEvent("CORBAEvent");
inline const Symbol corbaException("CORBAException");
inline const Symbol corbaHome("CORBAHome");
inline const Symbol corbaHomeImpl("CORBAHomeImpl");
inline const Symbol corbaInterface("CORBAInterface");
inline const Symbol corbaModule("CORBAModule");
inline const Symbol corbaSegment("CORBASegment");
inline const Symbol corbaSequence("CORBASequence");
inline const Symbol corbaStruct("CORBAStruct");
inline const Symbol corbaTypedef("CORBATypedef");
inline const Symbol corbaUnion("CORBAUnion");
inline const Symbol corbaValue("CORBAValue");
inline const Symbol idlGenerator("IDLGenerator");
inline const Symbol node("Node");  // by which other exporters mark elements while they run
}  // namespace stereotypes

/// The tagged values of stereotypes.
namespace tags {
inline const Symbol isConstant("isConstant");
}  // namespace tags

/// Keywords that a model itself gives its dependencies.
namespace keywords {
inline const Symbol access("access");
inline const Symbol import("import");
inline const Symbol manifest("manifest");
}  // namespace keywords

/// What properties with a fixed set of values answer.
namespace values {
inline constexpr std::string_view publicVisibility = "VkPublic";
inline constexpr std::string_view privateVisibility = "VkPrivate";
inline constexpr std::string_view protectedVisibility = "VkProtected";
inline constexpr std::string_view packageVisibility = "VkPackage";
inline constexpr std::string_view noVisibility = "VkNoVisibility";
inline constexpr std::string_view frozen = "CkFrozen";
inline constexpr std::string_view unfrozen = "CkUnfrozen";
inline constexpr std::string_view in = "DkIn";
inline constexpr std::string_view inOut = "DkInOut";
inline constexpr std::string_view out = "DkOut";
inline constexpr std::string_view return_ = "DkReturn";
}  // namespace values

}  // namespace model
