// The names of the properties that the agent asks its host for.
//
// A question takes its name as a string. Made once, it costs nothing; made from a literal for every
// question, it would cost as much as many an answer.
#pragma once

#include <string>

namespace mdktoidl::properties {

inline const std::string actualTemplateParameter = "ActualTemplateParameter";
inline const std::string boundary = "Boundary";
inline const std::string changeability = "Changeability";
inline const std::string clientDependency = "ClientDependency";
inline const std::string comment = "Comment";
inline const std::string defaultValue = "DefaultValue";
inline const std::string definition = "Definition";
inline const std::string direction = "Direction";
inline const std::string expression = "Expression";
inline const std::string generalization = "Generalization";
inline const std::string instanceOf = "InstanceOf";
inline const std::string isAbstract = "IsAbstract";
inline const std::string literal = "Literal";
inline const std::string lowerBound = "LowerBound";
inline const std::string multiplicity = "Multiplicity";
inline const std::string name = "Name";
inline const std::string comparison = "Operator";
inline const std::string ownedMember = "OwnedMember";
inline const std::string parameter = "Parameter";
inline const std::string parent = "Parent";
inline const std::string raisedException = "RaisedException";
inline const std::string session = "Session";
inline const std::string supplier = "Supplier";
inline const std::string text = "Text";
inline const std::string type = "Type";
inline const std::string upperBound = "UpperBound";
inline const std::string value = "Value";
inline const std::string valueString = "ValueString";
inline const std::string visibility = "Visibility";

}  // namespace mdktoidl::properties
