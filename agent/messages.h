// Every message about a model, once: its severity and its text.
//
// "{}" stands for a piece that the place of use supplies, nearly always a scoped name. Some texts
// lack a blank or begin with a word that seems to belong elsewhere; users and their scripts know
// them so, and they stay.
#pragma once

#include <cstddef>
#include <string_view>

namespace mdktoidl {

enum class Severity { warning, error };

enum class Message : std::size_t {
  // Modules and ordering
  moduleIsEmpty,
  cannotBeForward,
  // Structs
  structHasNoMembers,
  structHasConstant,
  // Attributes, fields and state members
  attributeBoundUnknown,
  attributeTypeUnknown,
  attributeTypeAnonymous,
  attributeTypeNotExported,
  // Constants
  constantHasMultiplicity,
  constantTypeUnknown,
  constantTypeIsTemplate,
  constantTypeNotExported,
  constantHasNoValue,
  constantValueNotExported,
  constantValueNotSupported,
  constantIsCircular,
  // Interfaces
  interfaceSupertypeNotExported,
  // Operations
  operationCannotCreate,
  operationOnewayRaises,
  operationRaisesUndefined,
  operationTypeUnknown,
  operationTypeAnonymous,
  operationTypeNotExported,
  // Parameters
  parameterReturnsValue,
  parameterBoundUnknown,
  parameterTypeUnknown,
  parameterTypeAnonymous,
  parameterTypeNotExported,
  // Multiplicities
  multiplicityLacksLowerBound,
  multiplicityLacksUpperBound,
  multiplicityNotUnderstood,
  multiplicityBoundNotAllowed,
  multiplicityIsCircular,
  multiplicityOfArray,
  count
};

Severity SeverityOf(Message message);
std::string_view Text(Message message);

}  // namespace mdktoidl
