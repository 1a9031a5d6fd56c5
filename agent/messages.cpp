#include "agent/messages.h"

#include <array>

namespace mdktoidl {

namespace {

struct Row {
  Message message;
  Severity severity;
  std::string_view text;
};

constexpr std::array rows = {
    // Modules and ordering
    Row{Message::moduleIsEmpty, Severity::warning, "module {} is empty"},
    Row{Message::cannotBeForward, Severity::warning,
        "Definition{} cannot be a forward declaration"},

    // Structs
    Row{Message::structHasNoMembers, Severity::warning, "struct {} has no members"},
    Row{Message::structHasConstant, Severity::warning,
        "Constant not allowed in struct {}; generating non-constant member instead"},

    // Attributes, fields and state members
    Row{Message::attributeBoundUnknown, Severity::error,
        "attribute {} has a multiplicity constant that could not be identified"},
    Row{Message::attributeTypeUnknown, Severity::error,
        "attribute {} has a type that could not be identified"},
    Row{Message::attributeTypeAnonymous, Severity::warning,
        "attribute {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::attributeTypeNotExported, Severity::error,
        "attribute {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},

    // Constants
    Row{Message::constantHasMultiplicity, Severity::error,
        "constant {} cannot have a multiplicity"},
    Row{Message::constantTypeUnknown, Severity::error,
        "constant {} has a type that could not be identified"},
    Row{Message::constantTypeIsTemplate, Severity::error,
        "constant {} cannot have a template type"},
    Row{Message::constantTypeNotExported, Severity::error,
        "constant {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::constantHasNoValue, Severity::error, "constant {} has no value"},
    Row{Message::constantValueNotExported, Severity::error,
        "constant {} has a value that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::constantValueNotSupported, Severity::error,
        "constant {} has a value that is not supported"},
    Row{Message::constantIsCircular, Severity::error,
        "constant {}: Circular references between constant values are not allowed"},

    // Interfaces
    Row{Message::interfaceSupertypeNotExported, Severity::error,
        "a supertype of interface{} is not marked as a CORBA type"},

    // Operations
    Row{Message::operationCannotCreate, Severity::warning,
        "operation {} cannot be a factory or finder operation"},
    Row{Message::operationOnewayRaises, Severity::error,
        "operation {} is oneway and cannot raise exceptions"},
    Row{Message::operationRaisesUndefined, Severity::error,
        "operation {} raises an undefined exception {}"},
    Row{Message::operationTypeUnknown, Severity::error,
        "operation {} has a return type that could not be identified"},
    Row{Message::operationTypeAnonymous, Severity::warning,
        "operation {} has an anonymous return template type; consider using a typedef instead"},
    Row{Message::operationTypeNotExported, Severity::error,
        "operation {} has a return type that is not marked as a CORBA type or not included in the "
        "generation"},

    // Parameters
    Row{Message::parameterReturnsValue, Severity::error,
        "operation {} has a value-returning parameter (inout, out, or return kind)"},
    Row{Message::parameterBoundUnknown, Severity::error,
        "attribute {}has a multiplicity constant that could not be identified"},
    Row{Message::parameterTypeUnknown, Severity::error,
        "parameter {} has a type that could not be identified"},
    Row{Message::parameterTypeAnonymous, Severity::warning,
        "parameter {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::parameterTypeNotExported, Severity::error,
        "parameter {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},

    // Multiplicities; the first piece is the construct word with the element's scoped name
    Row{Message::multiplicityLacksLowerBound, Severity::error,
        "{}: Failed to obtain lower bound of multiplicity"},
    Row{Message::multiplicityLacksUpperBound, Severity::error,
        "{}: Failed to obtain upper bound of multiplicity"},
    Row{Message::multiplicityNotUnderstood, Severity::error,
        "{}: Failed to correctly interpret multiplicity"},
    Row{Message::multiplicityBoundNotAllowed, Severity::error,
        "{}: Only integer literals and constants are allowed as multiplicitiy boundaries"},
    Row{Message::multiplicityIsCircular, Severity::error,
        "{}: Circular references between constant values are not allowed"},
    Row{Message::multiplicityOfArray, Severity::error,
        "{} cannot have a multiplicity on an array type"},
};

constexpr bool RowsFollowTheEnumeration() {
  for (std::size_t index = 0; index < rows.size(); ++index) {
    if (static_cast<std::size_t>(rows[index].message) != index) return false;
  }
  return rows.size() == static_cast<std::size_t>(Message::count);
}
static_assert(RowsFollowTheEnumeration());

const Row& RowOf(Message message) { return rows[static_cast<std::size_t>(message)]; }

}  // namespace

Severity SeverityOf(Message message) { return RowOf(message).severity; }

std::string_view Text(Message message) { return RowOf(message).text; }

}  // namespace mdktoidl
