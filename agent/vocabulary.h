// What the agent calls things when it asks its host about a model: metaclasses, properties,
// stereotypes and their tags. Each name stands here and nowhere else on this side of host/.
//
// A question takes its name as a string. Made once, it costs nothing; made from a literal for every
// question, it would cost as much as many an answer.
#pragma once

#include <string>

namespace mdktoidl {

namespace metaclasses {

inline const std::string artifact = "Artifact";
inline const std::string attribute = "Attribute";
inline const std::string booleanValue = "BooleanValue";
inline const std::string characterValue = "CharacterValue";
inline const std::string charstringValue = "CharstringValue";
inline const std::string classifier = "Class";
inline const std::string dataType = "DataType";
inline const std::string ident = "Ident";
inline const std::string integerValue = "IntegerValue";
inline const std::string interface = "Interface";
inline const std::string listExpression = "ListExpr";
inline const std::string opaqueExpression = "OpaqueExpression";
inline const std::string openRange = "OpenRange";
inline const std::string operation = "Operation";
inline const std::string package = "Package";
inline const std::string port = "Port";
inline const std::string realValue = "RealValue";
inline const std::string signal = "Signal";
inline const std::string syntype = "Syntype";
inline const std::string templateInstantiation = "TemplateInstantiation";

}  // namespace metaclasses

namespace properties {

inline const std::string actualTemplateParameter = "ActualTemplateParameter";
inline const std::string boundary = "Boundary";
inline const std::string changeability = "Changeability";
inline const std::string clientDependency = "ClientDependency";
inline const std::string comment = "Comment";
inline const std::string comparison = "Operator";
inline const std::string defaultValue = "DefaultValue";
inline const std::string definition = "Definition";
inline const std::string direction = "Direction";
inline const std::string expression = "Expression";
inline const std::string generalization = "Generalization";
inline const std::string instanceOf = "InstanceOf";
inline const std::string isAbstract = "IsAbstract";
// Value types are asked by another spelling than interfaces; hosts answer to both, and models in
// use rely on either.
inline const std::string isAbstractValue = "isAbstract";
inline const std::string literal = "Literal";
inline const std::string lowerBound = "LowerBound";
inline const std::string multiplicity = "Multiplicity";
inline const std::string name = "Name";
inline const std::string ownedMember = "OwnedMember";
inline const std::string parameter = "Parameter";
inline const std::string parent = "Parent";
inline const std::string raisedException = "RaisedException";
inline const std::string realized = "Realized";
inline const std::string required = "Required";
inline const std::string session = "Session";
inline const std::string supplier = "Supplier";
inline const std::string text = "Text";
inline const std::string type = "Type";
inline const std::string upperBound = "UpperBound";
inline const std::string uri = "Uri";
inline const std::string value = "Value";
inline const std::string valueString = "ValueString";
inline const std::string visibility = "Visibility";

}  // namespace properties

/// What properties with a fixed set of values answer.
namespace values {

inline constexpr std::string_view frozen = "CkFrozen";
inline constexpr std::string_view in = "DkIn";
inline constexpr std::string_view inOut = "DkInOut";
inline constexpr std::string_view noDirection = "DkNone";
inline constexpr std::string_view noVisibility = "VkNoVisibility";
inline constexpr std::string_view out = "DkOut";
inline constexpr std::string_view publicVisibility = "VkPublic";
inline constexpr std::string_view result = "DkReturn";

}  // namespace values

/// A stereotype or keyword, with the expression that asks whether an element is marked with it.
class Stereotype {
 public:
  explicit Stereotype(const std::string& name) : name_(name), marking_(name + " (. .)") {}

  const std::string& Name() const { return name_; }
  const std::string& Marking() const { return marking_; }

 private:
  std::string name_;
  std::string marking_;
};

namespace stereotypes {

inline const Stereotype access("access");
inline const Stereotype corba("CORBA");
inline const Stereotype corbaArtifact("CORBAArtifact");
inline const Stereotype corbaAttribute("CORBAAttribute");
inline const Stereotype corbaBoxedValue("CORBABoxedValue");
inline const Stereotype corbaComponent("CORBAComponent");
inline const Stereotype corbaComponentImpl("CORBAComponentImpl");
inline const Stereotype corbaEnum("CORBAEnum");
inline const Stereotype corbaEvent("CORBAEvent");
inline const Stereotype corbaEventSink("CORBAEventSink");
inline const Stereotype corbaEventSource("CORBAEventSource");
inline const Stereotype corbaException("CORBAException");
inline const Stereotype corbaFacet("CORBAFacet");
inline const Stereotype corbaFactory("CORBAFactory");
inline const Stereotype corbaFinder("CORBAFinder");
inline const Stereotype corbaHome("CORBAHome");
inline const Stereotype corbaHomeImpl("CORBAHomeImpl");
inline const Stereotype corbaImplements("CORBAImplements");
inline const Stereotype corbaInterface("CORBAInterface");
inline const Stereotype corbaIsProvidedBy("CORBAIsProvidedBy");
inline const Stereotype corbaManages("CORBAManages");
inline const Stereotype corbaModule("CORBAModule");
inline const Stereotype corbaOperation("CORBAOperation");
inline const Stereotype corbaPrimaryKey("CORBAPrimaryKey");
inline const Stereotype corbaReceptacle("CORBAReceptacle");
inline const Stereotype corbaSegment("CORBASegment");
inline const Stereotype corbaSequence("CORBASequence");
inline const Stereotype corbaStruct("CORBAStruct");
inline const Stereotype corbaSupports("CORBASupports");
inline const Stereotype corbaTruncatable("CORBATruncatable");
inline const Stereotype corbaTypedef("CORBATypedef");
inline const Stereotype corbaUnion("CORBAUnion");
inline const Stereotype corbaValue("CORBAValue");
inline const Stereotype corbaValueFactory("CORBAValueFactory");
inline const Stereotype idlFile("IDLFile");
inline const Stereotype idlGenerator("IDLGenerator");
inline const Stereotype import("import");
inline const Stereotype manifest("manifest");
inline const Stereotype unionCase("'case'");  // a keyword of the expressions, hence the quotes

}  // namespace stereotypes

/// A tagged value of a stereotype, with the expression that asks for it.
class Tag {
 public:
  Tag(const Stereotype& stereotype, const std::string& name)
      : name_(stereotype.Name() + "::" + name),
        expression_(stereotype.Name() + " (. " + name + " .)") {}

  /// "IDLFile::file", for messages.
  const std::string& Name() const { return name_; }
  const std::string& Expression() const { return expression_; }

 private:
  std::string name_;
  std::string expression_;
};

namespace tags {

inline const Tag category(stereotypes::corbaComponentImpl, "category");
inline const Tag composite(stereotypes::corbaComponentImpl, "composite");
inline const Tag context(stereotypes::corbaOperation, "context");
inline const Tag file(stereotypes::idlFile, "file");
inline const Tag fileMapping(stereotypes::idlGenerator, "fileMapping");
inline const Tag fileName(stereotypes::idlGenerator, "fileName");
inline const Tag fileSuffix(stereotypes::idlGenerator, "fileSuffix");
inline const Tag isAsyncDefault(stereotypes::idlGenerator, "isAsyncDefault");
inline const Tag isVerbatim(stereotypes::idlGenerator, "isVerbatim");
inline const Tag isConstant(stereotypes::corbaAttribute, "isConstant");
inline const Tag isCustom(stereotypes::corbaValue, "isCustom");
inline const Tag isDefault(stereotypes::unionCase, "isDefault");
inline const Tag isLocal(stereotypes::corbaInterface, "isLocal");
inline const Tag isMultiple(stereotypes::corbaReceptacle, "isMultiple");
inline const Tag isSimple(stereotypes::corbaUnion, "isSimple");
inline const Tag label(stereotypes::unionCase, "label");
inline const Tag overrideIsDefaultAsync(stereotypes::corbaOperation, "overrideIsDefaultAsync");
inline const Tag sourceKind(stereotypes::corbaEventSource, "sourceKind");
inline const Tag targetDir(stereotypes::idlGenerator, "targetDir");

}  // namespace tags

}  // namespace mdktoidl
