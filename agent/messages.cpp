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
    Row{Message::memberDeclaredAlready, Severity::warning,
        "{} has a member that is declared elsewhere and left out here: {}"},
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

    // Value types; the first piece is "value" or "event"
    Row{Message::valueIsAbstractAndCustom, Severity::warning,
        "A {} type {} cannot be both abstract and custom"},
    Row{Message::valueIsCustomAndTruncated, Severity::warning,
        "a custom {} type {} cannot have a truncated generalization"},
    Row{Message::valueSupertypeNotExported, Severity::error,
        "a supertype of {} type{} is not marked as a CORBA type"},
    Row{Message::valueSupportsOther, Severity::error, "a {} type{} can only support interfaces"},

    // Boxed values
    Row{Message::boxedValueLacksAttribute, Severity::error,
        "boxed value {} should contain one attribute indicating the base type"},
    Row{Message::boxedValueHasMoreAttributes, Severity::warning,
        "boxed value {} should only contain one attribute indicating the base type"},
    Row{Message::boxedValueHasMultiplicity, Severity::error,
        "boxed value {} cannot have a multiplicity on its type specification"},
    Row{Message::boxedValueTypeUnknown, Severity::error,
        "boxed value {} has a type that could not be identified"},
    Row{Message::boxedValueTypeNotExported, Severity::error,
        "boxed value {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::boxedValueTypeIsArray, Severity::error,
        "boxed value {} cannot have an array type; box a typedef of it instead"},

    // Typedefs
    Row{Message::typedefLacksType, Severity::error,
        "typedef {} should contain either one attribute or a single generalization indicating the "
        "base type"},
    Row{Message::typedefHasMoreAttributes, Severity::warning,
        "typedef {} should only contain one attribute indicating the base type"},
    Row{Message::typedefHasMultiplicity, Severity::error,
        "typedef {} cannot have a multiplicity on its type specification"},
    Row{Message::typedefTypeUnknown, Severity::error,
        "Typedef {} has a type that could not be identified"},
    Row{Message::typedefTemplateUnknown, Severity::error,
        "Typedef {} has a type that could not be identified (template)"},
    Row{Message::typedefTypeNotExported, Severity::error,
        "Typedef {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},

    // Sequences
    Row{Message::sequenceLacksAttribute, Severity::error,
        "sequence {} should contain one attribute indicating the base type"},
    Row{Message::sequenceHasMoreAttributes, Severity::warning,
        "sequence {} should only contain one attribute indicating the base type"},
    Row{Message::sequenceHasMultiplicity, Severity::error,
        "sequence {} cannot have a multiplicity on its base type"},
    Row{Message::sequenceTypeUnknown, Severity::error,
        "sequence {} has a type that could not be identified"},
    Row{Message::sequenceTypeAnonymous, Severity::warning,
        "sequence {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::sequenceTypeNotExported, Severity::error,
        "sequence {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::sequenceTypeIsArray, Severity::error,
        "sequence {} cannot have an array as its base type; use a typedef of it instead"},

    // Unions and their cases
    Row{Message::unionLacksCase, Severity::error, "union {} should contain at least one case"},
    Row{Message::unionLacksDiscriminator, Severity::error,
        "union {} must have one attribute specifying its discriminator"},
    Row{Message::unionHasMoreDiscriminators, Severity::error,
        "union {} has too many attributes specified as discriminator"},
    Row{Message::unionHasConstant, Severity::warning,
        "Constant not allowed in union {}; generating non-constant member instead"},
    Row{Message::discriminatorHasMultiplicity, Severity::error,
        "discriminator of union {} cannot have a multiplicity"},
    Row{Message::discriminatorUnknown, Severity::error,
        "union {} has a discriminator that could not be identified"},
    Row{Message::discriminatorIsTemplate, Severity::error,
        "union {} cannot have a discriminator that is a template type"},
    Row{Message::discriminatorNotExported, Severity::error,
        "union {} has a discriminator that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::discriminatorOfWrongType, Severity::error,
        "union {} has a discriminator that is no integer, char, boolean or enum"},
    Row{Message::caseBoundUnknown, Severity::error,
        "union case {}has a multiplicity constant that could not be identified"},
    Row{Message::caseTypeUnknown, Severity::error,
        "union case {} has a type that could not be identified"},
    Row{Message::caseTypeAnonymous, Severity::warning,
        "union case {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::caseTypeNotExported, Severity::error,
        "union case {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::caseLabelIgnored, Severity::warning,
        "union case {} has a case label that is ignored due to isSimple being set"},
    Row{Message::caseLabelUnknown, Severity::warning,
        "union case {} has a case label {} that is not present in the union's discriminator type"},
    Row{Message::caseLacksLabel, Severity::error, "union case {} has no case label"},

    // Components and their ports; a port that lacks its type is always called a facet
    Row{Message::componentHasOperation, Severity::warning, "Component {} cannot have operations"},
    Row{Message::componentHasMoreBases, Severity::error,
        "Component {} inherits more than one component"},
    Row{Message::facetLacksInterface, Severity::warning, "Facet {} lacks realized interface"},
    Row{Message::facetRequires, Severity::warning, "Facet {} cannot require interfaces"},
    Row{Message::receptacleLacksInterface, Severity::warning, "Facet {} lacks required interface"},
    Row{Message::receptacleRealizes, Severity::warning, "Receptacle {} cannot realize interfaces"},
    Row{Message::eventSourceLacksType, Severity::warning, "Facet {} lacks required type"},
    Row{Message::eventSourceRealizes, Severity::warning, "Event source {} cannot realize types"},
    Row{Message::eventSinkLacksType, Severity::warning, "Facet {} lacks realized type"},
    Row{Message::eventSinkRequires, Severity::warning, "Event sink {} cannot require types"},
    Row{Message::portRealizesTooMany, Severity::error,
        "Port {} has too many realizes relationships"},
    Row{Message::portRequiresTooMany, Severity::error,
        "Port {} has too many requires relationships"},

    // Homes
    Row{Message::homeHasMoreBases, Severity::error,
        "Home interface {} inherits more than one home interface"},
    Row{Message::homeSupertypeNotProper, Severity::warning,
        "Home interface {} has a supertype (generalization) that is not marked with a proper CORBA "
        "stereotype"},
    Row{Message::homeManagesMore, Severity::error,
        "home interface {} manages more than one component"},
    Row{Message::homeManagesNone, Severity::warning,
        "home interface {} manages no component that is included in the generation"},
    Row{Message::homeHasMoreKeys, Severity::error,
        "home interface {} has more than one primary key"},

    // Compositions
    Row{Message::compositionLacksHomeExecutor, Severity::error,
        "Component implementation {} has no valid home executor"},
    Row{Message::compositionHasMoreHomeExecutors, Severity::warning,
        "Component implementation {} has more than one home executor"},
    Row{Message::compositionImplementsMore, Severity::error,
        "Component implementation {} implements more than one component"},
    Row{Message::compositionCannotBeSegmented, Severity::warning,
        "A segmented component implementation ({}) can only be a process or entity"},
    Row{Message::homeExecutorImplementsMore, Severity::error,
        "Home implementation {} implements more than one home interface"},
    Row{Message::homeExecutorManagesMore, Severity::error,
        "Home implementation {} manages more than one component implementation"},
    Row{Message::segmentHasNoDependencies, Severity::error,
        "Segment {} provides no artifact (no dependencies have been defined)"},
    Row{Message::segmentProvidesNothing, Severity::error, "Segment {} provides no artifact"},

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
