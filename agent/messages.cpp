#include "agent/messages.h"

#include <array>

namespace mdktoidl {

namespace {

struct Row {
  Message message;
  Severity severity;
  std::string_view rule;
  std::string_view text;
};

constexpr std::array rows = {
    // Modules and ordering
    Row{Message::moduleIsEmpty, Severity::warning, "module-empty", "module {} is empty"},
    Row{Message::memberDeclaredAlready, Severity::warning, "member-declared-twice",
        "{} has a member that is declared elsewhere and left out here: {}"},
    Row{Message::cannotBeForward, Severity::warning, "forward-impossible",
        "Definition{} cannot be a forward declaration"},

    // Structs
    Row{Message::structHasNoMembers, Severity::warning, "struct-no-members",
        "struct {} has no members"},
    Row{Message::structHasConstant, Severity::warning, "constant-member",
        "Constant not allowed in struct {}; generating non-constant member instead"},

    // Attributes, fields and state members
    Row{Message::attributeBoundUnknown, Severity::error, "bound-unknown",
        "attribute {} has a multiplicity constant that could not be identified"},
    Row{Message::attributeTypeUnknown, Severity::error, "type-unknown",
        "attribute {} has a type that could not be identified"},
    Row{Message::attributeTypeAnonymous, Severity::warning, "type-anonymous",
        "attribute {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::attributeTypeNotExported, Severity::error, "type-not-exported",
        "attribute {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},

    // Constants
    Row{Message::constantHasMultiplicity, Severity::error, "constant-multiplicity",
        "constant {} cannot have a multiplicity"},
    Row{Message::constantTypeUnknown, Severity::error, "type-unknown",
        "constant {} has a type that could not be identified"},
    Row{Message::constantTypeIsTemplate, Severity::error, "constant-template-type",
        "constant {} cannot have a template type"},
    Row{Message::constantTypeNotExported, Severity::error, "type-not-exported",
        "constant {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::constantHasNoValue, Severity::error, "constant-no-value",
        "constant {} has no value"},
    Row{Message::constantValueNotExported, Severity::error, "constant-value-not-exported",
        "constant {} has a value that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::constantValueNotSupported, Severity::error, "constant-value-unsupported",
        "constant {} has a value that is not supported"},
    Row{Message::constantIsCircular, Severity::error, "constant-circular",
        "constant {}: Circular references between constant values are not allowed"},

    // Interfaces
    Row{Message::interfaceSupertypeNotExported, Severity::error, "supertype-not-exported",
        "a supertype of interface{} is not marked as a CORBA type"},

    // Value types; the first piece is "value" or "event"
    Row{Message::valueIsAbstractAndCustom, Severity::warning, "value-abstract-custom",
        "A {} type {} cannot be both abstract and custom"},
    Row{Message::valueIsCustomAndTruncated, Severity::warning, "value-custom-truncatable",
        "a custom {} type {} cannot have a truncated generalization"},
    Row{Message::valueSupertypeNotExported, Severity::error, "supertype-not-exported",
        "a supertype of {} type{} is not marked as a CORBA type"},
    Row{Message::valueSupportsOther, Severity::error, "value-supports-other",
        "a {} type{} can only support interfaces"},

    // Boxed values
    Row{Message::boxedValueLacksAttribute, Severity::error, "base-type-missing",
        "boxed value {} should contain one attribute indicating the base type"},
    Row{Message::boxedValueHasMoreAttributes, Severity::warning, "base-type-ambiguous",
        "boxed value {} should only contain one attribute indicating the base type"},
    Row{Message::boxedValueHasMultiplicity, Severity::error, "base-type-multiplicity",
        "boxed value {} cannot have a multiplicity on its type specification"},
    Row{Message::boxedValueTypeUnknown, Severity::error, "type-unknown",
        "boxed value {} has a type that could not be identified"},
    Row{Message::boxedValueTypeNotExported, Severity::error, "type-not-exported",
        "boxed value {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::boxedValueTypeIsArray, Severity::error, "base-type-array",
        "boxed value {} cannot have an array type; box a typedef of it instead"},

    // Typedefs
    Row{Message::typedefLacksType, Severity::error, "base-type-missing",
        "typedef {} should contain either one attribute or a single generalization indicating the "
        "base type"},
    Row{Message::typedefHasMoreAttributes, Severity::warning, "base-type-ambiguous",
        "typedef {} should only contain one attribute indicating the base type"},
    Row{Message::typedefHasMultiplicity, Severity::error, "base-type-multiplicity",
        "typedef {} cannot have a multiplicity on its type specification"},
    Row{Message::typedefTypeUnknown, Severity::error, "type-unknown",
        "Typedef {} has a type that could not be identified"},
    Row{Message::typedefTemplateUnknown, Severity::error, "template-unknown",
        "Typedef {} has a type that could not be identified (template)"},
    Row{Message::typedefTypeNotExported, Severity::error, "type-not-exported",
        "Typedef {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},

    // Sequences
    Row{Message::sequenceLacksAttribute, Severity::error, "base-type-missing",
        "sequence {} should contain one attribute indicating the base type"},
    Row{Message::sequenceHasMoreAttributes, Severity::warning, "base-type-ambiguous",
        "sequence {} should only contain one attribute indicating the base type"},
    Row{Message::sequenceHasMultiplicity, Severity::error, "base-type-multiplicity",
        "sequence {} cannot have a multiplicity on its base type"},
    Row{Message::sequenceTypeUnknown, Severity::error, "type-unknown",
        "sequence {} has a type that could not be identified"},
    Row{Message::sequenceTypeAnonymous, Severity::warning, "type-anonymous",
        "sequence {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::sequenceTypeNotExported, Severity::error, "type-not-exported",
        "sequence {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::sequenceTypeIsArray, Severity::error, "base-type-array",
        "sequence {} cannot have an array as its base type; use a typedef of it instead"},

    // Unions and their cases
    Row{Message::unionLacksCase, Severity::error, "union-no-case",
        "union {} should contain at least one case"},
    Row{Message::unionLacksDiscriminator, Severity::error, "union-no-discriminator",
        "union {} must have one attribute specifying its discriminator"},
    Row{Message::unionHasMoreDiscriminators, Severity::error, "union-more-discriminators",
        "union {} has too many attributes specified as discriminator"},
    Row{Message::unionHasConstant, Severity::warning, "constant-member",
        "Constant not allowed in union {}; generating non-constant member instead"},
    Row{Message::discriminatorHasMultiplicity, Severity::error, "discriminator-multiplicity",
        "discriminator of union {} cannot have a multiplicity"},
    Row{Message::discriminatorUnknown, Severity::error, "discriminator-unknown",
        "union {} has a discriminator that could not be identified"},
    Row{Message::discriminatorIsTemplate, Severity::error, "discriminator-template",
        "union {} cannot have a discriminator that is a template type"},
    Row{Message::discriminatorNotExported, Severity::error, "discriminator-not-exported",
        "union {} has a discriminator that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::discriminatorOfWrongType, Severity::error, "discriminator-type",
        "union {} has a discriminator that is no integer, char, boolean or enum"},
    Row{Message::caseBoundUnknown, Severity::error, "bound-unknown",
        "union case {}has a multiplicity constant that could not be identified"},
    Row{Message::caseTypeUnknown, Severity::error, "type-unknown",
        "union case {} has a type that could not be identified"},
    Row{Message::caseTypeAnonymous, Severity::warning, "type-anonymous",
        "union case {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::caseTypeNotExported, Severity::error, "type-not-exported",
        "union case {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::caseLabelIgnored, Severity::warning, "case-label-ignored",
        "union case {} has a case label that is ignored due to isSimple being set"},
    Row{Message::caseLabelUnknown, Severity::warning, "case-label-unknown",
        "union case {} has a case label {} that is not present in the union's discriminator type"},
    Row{Message::caseLacksLabel, Severity::error, "case-label-missing",
        "union case {} has no case label"},

    // Components and their ports; a port that lacks its type is always called a facet
    Row{Message::componentHasOperation, Severity::warning, "component-operation",
        "Component {} cannot have operations"},
    Row{Message::componentHasMoreBases, Severity::error, "component-more-bases",
        "Component {} inherits more than one component"},
    Row{Message::facetLacksInterface, Severity::warning, "port-type-missing",
        "Facet {} lacks realized interface"},
    Row{Message::facetRequires, Severity::warning, "port-type-forbidden",
        "Facet {} cannot require interfaces"},
    Row{Message::receptacleLacksInterface, Severity::warning, "port-type-missing",
        "Facet {} lacks required interface"},
    Row{Message::receptacleRealizes, Severity::warning, "port-type-forbidden",
        "Receptacle {} cannot realize interfaces"},
    Row{Message::eventSourceLacksType, Severity::warning, "port-type-missing",
        "Facet {} lacks required type"},
    Row{Message::eventSourceRealizes, Severity::warning, "port-type-forbidden",
        "Event source {} cannot realize types"},
    Row{Message::eventSinkLacksType, Severity::warning, "port-type-missing",
        "Facet {} lacks realized type"},
    Row{Message::eventSinkRequires, Severity::warning, "port-type-forbidden",
        "Event sink {} cannot require types"},
    Row{Message::portRealizesTooMany, Severity::error, "port-type-ambiguous",
        "Port {} has too many realizes relationships"},
    Row{Message::portRequiresTooMany, Severity::error, "port-type-ambiguous",
        "Port {} has too many requires relationships"},

    // Homes
    Row{Message::homeHasMoreBases, Severity::error, "home-more-bases",
        "Home interface {} inherits more than one home interface"},
    Row{Message::homeSupertypeNotProper, Severity::warning, "home-supertype",
        "Home interface {} has a supertype (generalization) that is not marked with a proper CORBA "
        "stereotype"},
    Row{Message::homeManagesMore, Severity::error, "home-manages-more",
        "home interface {} manages more than one component"},
    Row{Message::homeManagesNone, Severity::warning, "home-manages-none",
        "home interface {} manages no component that is included in the generation"},
    Row{Message::homeHasMoreKeys, Severity::error, "home-more-keys",
        "home interface {} has more than one primary key"},

    // Compositions
    Row{Message::compositionLacksHomeExecutor, Severity::error, "composition-no-executor",
        "Component implementation {} has no valid home executor"},
    Row{Message::compositionHasMoreHomeExecutors, Severity::warning, "composition-more-executors",
        "Component implementation {} has more than one home executor"},
    Row{Message::compositionImplementsMore, Severity::error, "composition-implements-more",
        "Component implementation {} implements more than one component"},
    Row{Message::compositionCannotBeSegmented, Severity::warning, "composition-segmented",
        "A segmented component implementation ({}) can only be a process or entity"},
    Row{Message::homeExecutorImplementsMore, Severity::error, "executor-implements-more",
        "Home implementation {} implements more than one home interface"},
    Row{Message::homeExecutorManagesMore, Severity::error, "executor-manages-more",
        "Home implementation {} manages more than one component implementation"},
    Row{Message::segmentHasNoDependencies, Severity::error, "segment-no-artifact",
        "Segment {} provides no artifact (no dependencies have been defined)"},
    Row{Message::segmentProvidesNothing, Severity::error, "segment-no-artifact",
        "Segment {} provides no artifact"},

    // Operations
    Row{Message::operationCannotCreate, Severity::warning, "operation-creates",
        "operation {} cannot be a factory or finder operation"},
    Row{Message::operationOnewayRaises, Severity::error, "oneway-raises",
        "operation {} is oneway and cannot raise exceptions"},
    Row{Message::operationRaisesUndefined, Severity::error, "exception-undefined",
        "operation {} raises an undefined exception {}"},
    Row{Message::operationTypeUnknown, Severity::error, "type-unknown",
        "operation {} has a return type that could not be identified"},
    Row{Message::operationTypeAnonymous, Severity::warning, "type-anonymous",
        "operation {} has an anonymous return template type; consider using a typedef instead"},
    Row{Message::operationTypeNotExported, Severity::error, "type-not-exported",
        "operation {} has a return type that is not marked as a CORBA type or not included in the "
        "generation"},

    // Parameters
    Row{Message::parameterReturnsValue, Severity::error, "oneway-returns",
        "operation {} has a value-returning parameter (inout, out, or return kind)"},
    Row{Message::parameterBoundUnknown, Severity::error, "bound-unknown",
        "attribute {}has a multiplicity constant that could not be identified"},
    Row{Message::parameterTypeUnknown, Severity::error, "type-unknown",
        "parameter {} has a type that could not be identified"},
    Row{Message::parameterTypeAnonymous, Severity::warning, "type-anonymous",
        "parameter {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::parameterTypeNotExported, Severity::error, "type-not-exported",
        "parameter {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},

    // Multiplicities; the first piece is the construct word with the element's scoped name
    Row{Message::multiplicityLacksLowerBound, Severity::error, "bound-missing",
        "{}: Failed to obtain lower bound of multiplicity"},
    Row{Message::multiplicityLacksUpperBound, Severity::error, "bound-missing",
        "{}: Failed to obtain upper bound of multiplicity"},
    Row{Message::multiplicityNotUnderstood, Severity::error, "bound-not-understood",
        "{}: Failed to correctly interpret multiplicity"},
    Row{Message::multiplicityBoundNotAllowed, Severity::error, "bound-not-allowed",
        "{}: Only integer literals and constants are allowed as multiplicitiy boundaries"},
    Row{Message::multiplicityIsCircular, Severity::error, "bound-circular",
        "{}: Circular references between constant values are not allowed"},
    Row{Message::multiplicityOfArray, Severity::error, "bound-of-array",
        "{} cannot have a multiplicity on an array type"},

    // Names, which are checked only for who asks
    Row{Message::nameMissing, Severity::warning, "idl-identifier", "{} has no name"},
    Row{Message::nameNotIdentifier, Severity::warning, "idl-identifier",
        "{}: '{}' is no IDL identifier"},
    Row{Message::nameIsKeyword, Severity::warning, "idl-keyword",
        "{} is named as the IDL keyword '{}'"},
    Row{Message::nameIsKeywordButForCapitals, Severity::warning, "idl-keyword",
        "{} is named as the IDL keyword '{}', but for capitals"},
    Row{Message::nameClashes, Severity::warning, "name-clash", "{} clashes with {}"},
    Row{Message::nameOfEnumeratorClashes, Severity::warning, "enumerator-clash",
        "{} clashes with {}"},
    Row{Message::nameDeclaredTwice, Severity::warning, "name-clash", "{} is exported twice"},
    Row{Message::nameOfScopeAround, Severity::warning, "name-hides-scope",
        "{} has the name of the {} around it"},
    Row{Message::nameClashesWithInherited, Severity::warning, "name-clash",
        "{} clashes with the inherited {}"},
    Row{Message::nameInheritedTwice, Severity::warning, "name-clash", "{} inherits both {} and {}"},
    Row{Message::nameClashesWithUsed, Severity::warning, "use-clash",
        "{} clashes with {}, which is used in {}"},
    Row{Message::nameHiddenByInherited, Severity::warning, "use-clash",
        "{} uses {}, which the inherited {} hides"},
    Row{Message::nameNotVisible, Severity::warning, "name-not-visible",
        "{} uses {} by its simple name, which means nothing there"},
    Row{Message::namesInheritedTooWidely, Severity::warning, "name-clash",
        "so much is inherited so widely that not every inherited name was checked"},

    // Names of files
    Row{Message::fileNameUnsafe, Severity::error, "unsafe-name",
        "{}: {} '{}' holds {}, which must not be in the name of a file"},
    Row{Message::fileNameOfModuleUnsafe, Severity::error, "unsafe-name",
        "{}: '{}' holds {}, which must not be in the name of a file"},
    Row{Message::fileNameOfModuleEmpty, Severity::error, "unsafe-name",
        "{} has no name to call its file by"},
    Row{Message::fileNameIsNoDirectory, Severity::error, "unsafe-name",
        "{}: '.' is no name for a directory"},
    Row{Message::fileNamesSame, Severity::error, "file-clash", "{} and {} have the same file '{}'"},
    Row{Message::fileNamesDifferInCapitals, Severity::warning, "file-clash",
        "{} and {} have files that differ only in capitals, '{}' and '{}'"},

    // What ends an export
    Row{Message::settingMissing, Severity::fatal, "setting-missing", "Failed to find value for {}"},
    Row{Message::moduleTooDeep, Severity::fatal, "module-too-deep",
        "module {} is nested too deeply"},
    Row{Message::nameUnresolved, Severity::fatal, "name-unresolved",
        "Failed to interpret ident correctly"},
    Row{Message::templateParameterWrong, Severity::fatal, "template-parameter",
        "A parameter of {} template has incorrect type"},
    Row{Message::templateParameterCircular, Severity::fatal, "bound-circular",
        "Circular references between constant values are not allowed"},
    Row{Message::hostFailed, Severity::fatal, "export-aborted", "{}"},

    // What is said besides the lists
    Row{Message::nothingToExport, Severity::error, "nothing-to-export",
        "IDL exporter failed to find root element to export."},
    Row{Message::fileNotOpened, Severity::error, "file-not-opened",
        "IDL exporter failed to open file {}"},
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

std::string_view RuleOf(Message message) { return RowOf(message).rule; }

std::string_view Text(Message message) { return RowOf(message).text; }

}  // namespace mdktoidl
