#include "agent/messages.h"

#include <array>

namespace mdktoidl {

namespace {

/// How grave something is: where what is written is made legal, and in the plain form.
struct Severities {
  Severity usual;
  Severity verbatim;
};

constexpr Severities warning{Severity::warning, Severity::warning};
constexpr Severities error{Severity::error, Severity::error};
constexpr Severities fatal{Severity::fatal, Severity::fatal};
/// What no compiler takes, and nothing can be written for.
constexpr Severities illegal{Severity::error, Severity::remark};
/// What the plain form can be meant to have, and nothing else.
constexpr Severities illegalInModels{Severity::error, Severity::silent};
/// What is repaired, and else no compiler takes it.
constexpr Severities illegalUnlessRepaired{Severity::silent, Severity::remark};
/// The same, which the agent's own text has always warned of.
constexpr Severities illegalAsWarned{Severity::error, Severity::warning};
/// What is repaired, and where it isn't, the agent's own text warns of it.
constexpr Severities repairedAsWarned{Severity::silent, Severity::warning};
/// What is repaired, and where it isn't, the agent's own text refuses it.
constexpr Severities repairedAsRefused{Severity::silent, Severity::error};
/// What is legal, but will be trouble.
constexpr Severities remark{Severity::remark, Severity::remark};
/// A repair.
constexpr Severities repair{Severity::note, Severity::silent};

struct Row {
  Message message;
  Severities severities;
  std::string_view rule;
  std::string_view text;
};

constexpr std::array rows = {
    // Modules and ordering
    Row{Message::moduleIsEmpty, warning, "module-empty", "module {} is empty"},
    Row{Message::memberDeclaredAlready, warning, "member-declared-twice",
        "{} has a member that is declared elsewhere and left out here: {}"},
    Row{Message::cannotBeForward, repairedAsWarned, "forward-impossible",
        "Definition{} cannot be a forward declaration"},
    Row{Message::orderIsCircular, error, "order-circle", "{} needs itself complete: {}"},
    Row{Message::filesAreCircular, error, "file-circle",
        "the file of {} and others need each other complete, so one file for everything is needed, "
        "or a declaration has to move: {}"},
    Row{Message::orderRepaired, repair, "repaired-order",
        "{}: its declarations are written in another order, in which each stands behind what it "
        "needs"},
    Row{Message::moduleOpenedAgain, repair, "repaired-order",
        "module {} is opened more than once, since others need some of it before the rest"},
    Row{Message::fileFramed, repair, "repaired-order",
        "{}: its file gets other includes or openings of modules, so that it may be read first"},

    // Structs
    Row{Message::structHasNoMembers, illegalAsWarned, "struct-no-members",
        "struct {} has no members"},
    Row{Message::structHasConstant, warning, "constant-member",
        "Constant not allowed in struct {}; generating non-constant member instead"},
    Row{Message::structHasNoPublicMembers, illegal, "struct-no-members",
        "struct {} has no public members; make one of them public"},
    Row{Message::enumHasNoEnumerators, illegal, "enum-no-enumerators",
        "enum {} has no enumerators; give it one"},

    // Attributes, fields and state members
    Row{Message::attributeBoundUnknown, error, "bound-unknown",
        "attribute {} has a multiplicity constant that could not be identified"},
    Row{Message::attributeTypeUnknown, error, "type-unknown",
        "attribute {} has a type that could not be identified"},
    Row{Message::attributeTypeAnonymous, repairedAsWarned, "type-anonymous",
        "attribute {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::memberTypeAnonymous, warning, "type-anonymous",
        "attribute {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::attributeTypeNotExported, error, "type-not-exported",
        "attribute {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::typeIsNative, illegal, "type-native",
        "{} is of the type native, which IDL has none of; give it another type"},
    Row{Message::boundTooLarge, illegal, "bound-too-large",
        "{} has the size {}, but no size may be greater than 4294967295"},
    Row{Message::boundNotSize, illegal, "bound-too-large",
        "{} is bounded by {}, which is no positive integer of 32 bits; give that an integer type "
        "and such a value"},
    Row{Message::fixedHasWrongDigits, illegal, "fixed-digits",
        "{} is a {}; give that at most 31 digits, and no more of them behind its point than it "
        "has"},
    Row{Message::useOfWrongKind, illegal, "wrong-kind", "{}: {} is no {}; give it one"},

    // Constants
    Row{Message::constantHasMultiplicity, error, "constant-multiplicity",
        "constant {} cannot have a multiplicity"},
    Row{Message::constantTypeUnknown, error, "type-unknown",
        "constant {} has a type that could not be identified"},
    Row{Message::constantTypeIsTemplate, error, "constant-template-type",
        "constant {} cannot have a template type"},
    Row{Message::constantTypeNotExported, error, "type-not-exported",
        "constant {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::constantHasNoValue, error, "constant-no-value", "constant {} has no value"},
    Row{Message::constantValueNotExported, error, "constant-value-not-exported",
        "constant {} has a value that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::constantValueNotSupported, error, "constant-value-unsupported",
        "constant {} has a value that is not supported"},
    Row{Message::constantIsCircular, error, "constant-circular",
        "constant {}: Circular references between constant values are not allowed"},
    Row{Message::constantValueIsExpression, repairedAsRefused, "constant-value-unsupported",
        "constant {} has a value that is not supported"},
    Row{Message::constantTypeHasNoConstants, illegal, "constant-type",
        "constant {} is of {}, of which IDL has no constants; give it a boolean, a number, a "
        "character, a string or an enum as its type"},
    Row{Message::constantValueUnfit, illegal, "constant-value",
        "constant {}: {} is no value of {}; give it another value or type"},
    Row{Message::constantValueRepaired, repair, "repaired-value",
        "constant {}: its value {} is written as {}"},

    // Interfaces
    Row{Message::interfaceSupertypeNotExported, error, "supertype-not-exported",
        "a supertype of interface{} is not marked as a CORBA type"},
    Row{Message::interfaceBaseNotAbstract, illegal, "interface-base",
        "interface {} is abstract, but inherits {}, which is not; make both abstract, or neither"},
    Row{Message::interfaceBaseLocal, illegal, "interface-base",
        "interface {} is not local, but inherits {}, which is; make both local, or neither"},
    Row{Message::localTypeUsed, illegal, "local-type",
        "{} can be called from elsewhere, but uses {}, which is local or holds a local interface; "
        "make its interface local, or use another type"},

    // Value types; the first piece is "value" or "event"
    Row{Message::valueIsAbstractAndCustom, illegalAsWarned, "value-abstract-custom",
        "A {} type {} cannot be both abstract and custom"},
    Row{Message::valueIsCustomAndTruncated, illegalAsWarned, "value-custom-truncatable",
        "a custom {} type {} cannot have a truncated generalization"},
    Row{Message::valueSupertypeNotExported, error, "supertype-not-exported",
        "a supertype of {} type{} is not marked as a CORBA type"},
    Row{Message::valueSupportsOther, error, "value-supports-other",
        "a {} type{} can only support interfaces"},
    Row{Message::valueBaseNotFirst, illegal, "value-base",
        "{} type {} inherits {}, which is not abstract, behind another base; of its bases only the "
        "first may not be abstract"},
    Row{Message::valueBaseTwice, illegal, "value-base",
        "{} type {} inherits {} twice; remove one of the generalizations"},
    Row{Message::valueAbstractOfConcrete, illegal, "value-base",
        "{} type {} is abstract, but inherits {}, which is not; make both abstract, or neither"},
    Row{Message::valueOfCustom, illegal, "value-base",
        "{} type {} is not custom, but inherits {}, which is; make both custom, or neither"},
    Row{Message::valueSupportsMore, illegal, "value-supports",
        "{} type {} supports both {} and {}; only one of the interfaces may not be abstract"},
    Row{Message::valueSupportsUnrelated, illegal, "value-supports",
        "{} supports {}, which is not derived from {}, which its base {} supports; let it support "
        "an interface that inherits both"},
    Row{Message::valueAbstractHolds, illegal, "value-abstract-state",
        "{} cannot stand in the abstract {}; remove it, or make that concrete"},
    Row{Message::valueBasesReordered, repair, "repaired-bases",
        "{} type {}: {} is written before its other bases"},
    Row{Message::stateSizeAdded, repair, "repaired-size",
        "state member {}: its size {} is written behind its name"},

    // Boxed values
    Row{Message::boxedValueLacksAttribute, error, "base-type-missing",
        "boxed value {} should contain one attribute indicating the base type"},
    Row{Message::boxedValueHasMoreAttributes, warning, "base-type-ambiguous",
        "boxed value {} should only contain one attribute indicating the base type"},
    Row{Message::boxedValueHasMultiplicity, error, "base-type-multiplicity",
        "boxed value {} cannot have a multiplicity on its type specification"},
    Row{Message::boxedValueTypeUnknown, error, "type-unknown",
        "boxed value {} has a type that could not be identified"},
    Row{Message::boxedValueTypeNotExported, error, "type-not-exported",
        "boxed value {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::boxedValueTypeIsArray, error, "base-type-array",
        "boxed value {} cannot have an array type; box a typedef of it instead"},
    Row{Message::boxedValueOfValue, illegal, "boxed-value-type",
        "boxed value {} cannot box {}; use that itself"},
    Row{Message::boxedValueNotInModule, illegal, "boxed-value-place",
        "boxed value {} cannot stand in {}; move it into a module"},

    // Typedefs
    Row{Message::typedefLacksType, error, "base-type-missing",
        "typedef {} should contain either one attribute or a single generalization indicating the "
        "base type"},
    Row{Message::typedefHasMoreAttributes, warning, "base-type-ambiguous",
        "typedef {} should only contain one attribute indicating the base type"},
    Row{Message::typedefHasMultiplicity, error, "base-type-multiplicity",
        "typedef {} cannot have a multiplicity on its type specification"},
    Row{Message::typedefTypeUnknown, error, "type-unknown",
        "Typedef {} has a type that could not be identified"},
    Row{Message::typedefTemplateUnknown, error, "template-unknown",
        "Typedef {} has a type that could not be identified (template)"},
    Row{Message::typedefTypeNotExported, error, "type-not-exported",
        "Typedef {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},

    // Sequences
    Row{Message::sequenceLacksAttribute, error, "base-type-missing",
        "sequence {} should contain one attribute indicating the base type"},
    Row{Message::sequenceHasMoreAttributes, warning, "base-type-ambiguous",
        "sequence {} should only contain one attribute indicating the base type"},
    Row{Message::sequenceHasMultiplicity, error, "base-type-multiplicity",
        "sequence {} cannot have a multiplicity on its base type"},
    Row{Message::sequenceTypeUnknown, error, "type-unknown",
        "sequence {} has a type that could not be identified"},
    Row{Message::sequenceTypeAnonymous, warning, "type-anonymous",
        "sequence {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::sequenceTypeNotExported, error, "type-not-exported",
        "sequence {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::sequenceTypeIsArray, error, "base-type-array",
        "sequence {} cannot have an array as its base type; use a typedef of it instead"},

    // Unions and their cases
    Row{Message::unionLacksCase, error, "union-no-case",
        "union {} should contain at least one case"},
    Row{Message::unionLacksDiscriminator, error, "union-no-discriminator",
        "union {} must have one attribute specifying its discriminator"},
    Row{Message::unionHasMoreDiscriminators, error, "union-more-discriminators",
        "union {} has too many attributes specified as discriminator"},
    Row{Message::unionHasConstant, warning, "constant-member",
        "Constant not allowed in union {}; generating non-constant member instead"},
    Row{Message::discriminatorHasMultiplicity, error, "discriminator-multiplicity",
        "discriminator of union {} cannot have a multiplicity"},
    Row{Message::discriminatorUnknown, error, "discriminator-unknown",
        "union {} has a discriminator that could not be identified"},
    Row{Message::discriminatorIsTemplate, error, "discriminator-template",
        "union {} cannot have a discriminator that is a template type"},
    Row{Message::discriminatorNotExported, error, "discriminator-not-exported",
        "union {} has a discriminator that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::discriminatorOfWrongType, error, "discriminator-type",
        "union {} has a discriminator that is no integer, char, boolean or enum"},
    Row{Message::caseBoundUnknown, error, "bound-unknown",
        "union case {}has a multiplicity constant that could not be identified"},
    Row{Message::caseTypeUnknown, error, "type-unknown",
        "union case {} has a type that could not be identified"},
    Row{Message::caseTypeAnonymous, warning, "type-anonymous",
        "union case {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::caseTypeNotExported, error, "type-not-exported",
        "union case {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::caseLabelIgnored, warning, "case-label-ignored",
        "union case {} has a case label that is ignored due to isSimple being set"},
    Row{Message::caseLabelUnknown, repairedAsWarned, "case-label-unknown",
        "union case {} has a case label {} that is not present in the union's discriminator type"},
    Row{Message::caseLacksLabel, error, "case-label-missing", "union case {} has no case label"},
    Row{Message::caseLabelUnfit, illegal, "case-label",
        "union case {}: label {} is no value of {}; give it another one"},
    Row{Message::caseLabelTwice, illegal, "case-label-twice",
        "union case {}: label {} is that of {} already; remove one of them"},
    Row{Message::caseDefaultTwice, illegal, "case-default-twice",
        "union case {} is the default, but so is {}; give one of them labels"},
    Row{Message::caseDefaultImpossible, illegal, "case-default-impossible",
        "union case {} is the default, but the labels are all values of {}; remove it, or a label"},
    Row{Message::caseLabelRepaired, repair, "repaired-value",
        "union case {}: its label {} is written as {}"},

    // Components and their ports; a port that lacks its type is always called a facet
    Row{Message::componentHasOperation, warning, "component-operation",
        "Component {} cannot have operations"},
    Row{Message::componentHasMoreBases, error, "component-more-bases",
        "Component {} inherits more than one component"},
    Row{Message::facetLacksInterface, warning, "port-type-missing",
        "Facet {} lacks realized interface"},
    Row{Message::facetRequires, warning, "port-type-forbidden",
        "Facet {} cannot require interfaces"},
    Row{Message::receptacleLacksInterface, warning, "port-type-missing",
        "Facet {} lacks required interface"},
    Row{Message::receptacleRealizes, warning, "port-type-forbidden",
        "Receptacle {} cannot realize interfaces"},
    Row{Message::eventSourceLacksType, warning, "port-type-missing",
        "Facet {} lacks required type"},
    Row{Message::eventSourceRealizes, warning, "port-type-forbidden",
        "Event source {} cannot realize types"},
    Row{Message::eventSinkLacksType, warning, "port-type-missing", "Facet {} lacks realized type"},
    Row{Message::eventSinkRequires, warning, "port-type-forbidden",
        "Event sink {} cannot require types"},
    Row{Message::portRealizesTooMany, error, "port-type-ambiguous",
        "Port {} has too many realizes relationships"},
    Row{Message::portRequiresTooMany, error, "port-type-ambiguous",
        "Port {} has too many requires relationships"},

    // Homes
    Row{Message::homeHasMoreBases, error, "home-more-bases",
        "Home interface {} inherits more than one home interface"},
    Row{Message::homeSupertypeNotProper, warning, "home-supertype",
        "Home interface {} has a supertype (generalization) that is not marked with a proper CORBA "
        "stereotype"},
    Row{Message::homeManagesMore, error, "home-manages-more",
        "home interface {} manages more than one component"},
    Row{Message::homeManagesNone, illegalAsWarned, "home-manages-none",
        "home interface {} manages no component that is included in the generation"},
    Row{Message::homeHasMoreKeys, error, "home-more-keys",
        "home interface {} has more than one primary key"},

    // Compositions
    Row{Message::compositionLacksHomeExecutor, error, "composition-no-executor",
        "Component implementation {} has no valid home executor"},
    Row{Message::compositionHasMoreHomeExecutors, warning, "composition-more-executors",
        "Component implementation {} has more than one home executor"},
    Row{Message::compositionImplementsMore, error, "composition-implements-more",
        "Component implementation {} implements more than one component"},
    Row{Message::compositionCannotBeSegmented, warning, "composition-segmented",
        "A segmented component implementation ({}) can only be a process or entity"},
    Row{Message::compositionCategoryUnknown, illegal, "composition-category",
        "Component implementation {} has the unknown category {}; make it entity, process, service "
        "or session"},
    Row{Message::homeExecutorImplementsMore, error, "executor-implements-more",
        "Home implementation {} implements more than one home interface"},
    Row{Message::homeExecutorManagesMore, error, "executor-manages-more",
        "Home implementation {} manages more than one component implementation"},
    Row{Message::segmentHasNoDependencies, error, "segment-no-artifact",
        "Segment {} provides no artifact (no dependencies have been defined)"},
    Row{Message::segmentProvidesNothing, error, "segment-no-artifact",
        "Segment {} provides no artifact"},
    Row{Message::segmentFacetForeign, illegal, "segment-facet",
        "Segment {} provides {}, which is no facet of {}; let it provide one of those"},
    Row{Message::segmentWritten, repair, "repaired-segment",
        "Segment {} is written with the keyword 'facet', and without a semicolon behind it"},

    // Operations
    Row{Message::operationCannotCreate, illegalAsWarned, "operation-creates",
        "operation {} cannot be a factory or finder operation"},
    Row{Message::operationOnewayRaises, error, "oneway-raises",
        "operation {} is oneway and cannot raise exceptions"},
    Row{Message::operationRaisesUndefined, error, "exception-undefined",
        "operation {} raises an undefined exception {}"},
    Row{Message::operationTypeUnknown, error, "type-unknown",
        "operation {} has a return type that could not be identified"},
    Row{Message::operationTypeAnonymous, repairedAsWarned, "type-anonymous",
        "operation {} has an anonymous return template type; consider using a typedef instead"},
    Row{Message::operationTypeNotExported, error, "type-not-exported",
        "operation {} has a return type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::finderInValue, illegal, "operation-creates",
        "operation {} cannot be a finder in {}; make it a factory, or a plain operation"},
    Row{Message::contextIllegal, illegal, "context-string",
        "operation {}: {} is no context string; give it letters, digits, points and underscores "
        "behind a letter, in quotes"},
    Row{Message::contextRepaired, repair, "repaired-context",
        "operation {}: its context is written without empty strings, and with quotes"},

    // Parameters
    Row{Message::parameterReturnsValue, error, "oneway-returns",
        "operation {} has a value-returning parameter (inout, out, or return kind)"},
    Row{Message::parameterBoundUnknown, error, "bound-unknown",
        "attribute {}has a multiplicity constant that could not be identified"},
    Row{Message::parameterTypeUnknown, error, "type-unknown",
        "parameter {} has a type that could not be identified"},
    Row{Message::parameterTypeAnonymous, repairedAsWarned, "type-anonymous",
        "parameter {} has an anonymous template type; consider using a typedef instead"},
    Row{Message::parameterTypeNotExported, error, "type-not-exported",
        "parameter {} has a type that is not marked as a CORBA type or not included in the "
        "generation"},
    Row{Message::parameterLacksDirection, illegal, "parameter-direction",
        "parameter {} has no direction; make it in, inout or out"},

    // Multiplicities; the first piece is the construct word with the element's scoped name
    Row{Message::multiplicityLacksLowerBound, error, "bound-missing",
        "{}: Failed to obtain lower bound of multiplicity"},
    Row{Message::multiplicityLacksUpperBound, error, "bound-missing",
        "{}: Failed to obtain upper bound of multiplicity"},
    Row{Message::multiplicityNotUnderstood, error, "bound-not-understood",
        "{}: Failed to correctly interpret multiplicity"},
    Row{Message::multiplicityBoundNotAllowed, error, "bound-not-allowed",
        "{}: Only integer literals and constants are allowed as multiplicitiy boundaries"},
    Row{Message::multiplicityIsCircular, error, "bound-circular",
        "{}: Circular references between constant values are not allowed"},
    Row{Message::multiplicityOfArray, error, "bound-of-array",
        "{} cannot have a multiplicity on an array type"},
    Row{Message::commentRepaired, repair, "repaired-comment",
        "{}: a line of its comment is changed, so that it remains a comment"},

    // Types that are given a name; the first piece is the construct word with the scoped name
    Row{Message::typedefAdded, repair, "added-typedef", "{}: typedef {} was added for its type"},
    Row{Message::typeNamed, repair, "named-type",
        "{}: its type is written as {}, which means the same"},

    // Names
    Row{Message::nameMissing, illegal, "idl-identifier", "{} has no name"},
    Row{Message::nameNotIdentifier, illegal, "idl-identifier", "{}: '{}' is no IDL identifier{}"},
    Row{Message::nameIsEscaped, illegalInModels, "idl-identifier",
        "{} begins with an underscore; call it '{}', and one is written where IDL needs it"},
    Row{Message::nameIsKeyword, illegalUnlessRepaired, "idl-keyword",
        "{} is named as the IDL keyword '{}'"},
    Row{Message::nameIsKeywordButForCapitals, illegalUnlessRepaired, "idl-keyword",
        "{} is named as the IDL keyword '{}', but for capitals"},
    Row{Message::nameClashes, illegal, "name-clash", "{} clashes with {}"},
    Row{Message::nameOfEnumeratorClashes, illegal, "enumerator-clash", "{} clashes with {}"},
    Row{Message::nameDeclaredTwice, illegal, "name-clash", "{} is exported twice"},
    Row{Message::nameOfScopeAround, illegal, "name-hides-scope",
        "{} has the name of the {} around it"},
    Row{Message::nameClashesWithInherited, illegal, "name-clash",
        "{} clashes with the inherited {}"},
    Row{Message::nameInheritedTwice, illegal, "name-clash", "{} inherits both {} and {}"},
    Row{Message::nameClashesWithUsed, illegalUnlessRepaired, "use-clash",
        "{} clashes with {}, which is used in {}"},
    Row{Message::nameHiddenByInherited, illegalUnlessRepaired, "use-clash",
        "{} uses {}, which the inherited {} hides"},
    Row{Message::nameNotVisible, illegalUnlessRepaired, "name-not-visible",
        "{} uses {} by its simple name, which means nothing there"},
    Row{Message::nameMeansOther, illegalUnlessRepaired, "name-not-visible",
        "{} uses {} by a name that means {} there"},
    Row{Message::namesInheritedTooWidely, remark, "name-clash",
        "so much is inherited so widely that not every inherited name was checked"},
    Row{Message::nameEscaped, repair, "repaired-name",
        "{} is written as '_{}', which IDL takes for the name and not for a keyword"},
    Row{Message::nameRespelled, repair, "repaired-name", "{} writes {} as '{}'"},

    // Names of files
    Row{Message::fileNameUnsafe, error, "unsafe-name",
        "{}: {} '{}' holds {}, which must not be in the name of a file"},
    Row{Message::fileNameOfModuleUnsafe, error, "unsafe-name",
        "{}: '{}' holds {}, which must not be in the name of a file"},
    Row{Message::fileNameOfModuleEmpty, error, "unsafe-name", "{} has no name to call its file by"},
    Row{Message::fileNameIsNoDirectory, error, "unsafe-name", "{}: '.' is no name for a directory"},
    Row{Message::fileNamesSame, error, "file-clash", "{} and {} have the same file '{}'"},
    Row{Message::fileNamesDifferInCapitals, warning, "file-clash",
        "{} and {} have files that differ only in capitals, '{}' and '{}'"},

    // What ends an export
    Row{Message::settingMissing, fatal, "setting-missing", "Failed to find value for {}"},
    Row{Message::moduleTooDeep, fatal, "module-too-deep", "module {} is nested too deeply"},
    Row{Message::nameUnresolved, fatal, "name-unresolved", "Failed to interpret ident correctly"},
    Row{Message::templateParameterWrong, fatal, "template-parameter",
        "A parameter of {} template has incorrect type"},
    Row{Message::templateParameterCircular, fatal, "bound-circular",
        "Circular references between constant values are not allowed"},
    Row{Message::hostFailed, fatal, "export-aborted", "{}"},

    // What is said besides the lists
    Row{Message::nothingToExport, error, "nothing-to-export",
        "IDL exporter failed to find root element to export."},
    Row{Message::fileNotOpened, error, "file-not-opened", "IDL exporter failed to open file {}"},
};

constexpr bool RowsFollowTheEnumeration() {
  for (std::size_t index = 0; index < rows.size(); ++index) {
    if (static_cast<std::size_t>(rows[index].message) != index) return false;
  }
  return rows.size() == static_cast<std::size_t>(Message::count);
}
static_assert(RowsFollowTheEnumeration());

bool verbatim = false;

const Row& RowOf(Message message) { return rows[static_cast<std::size_t>(message)]; }

}  // namespace

void SetVerbatim(bool isVerbatim) { verbatim = isVerbatim; }

Severity SeverityOf(Message message) {
  const Severities& severities = RowOf(message).severities;
  return verbatim ? severities.verbatim : severities.usual;
}

bool isAboutLegality(Message message) {
  return RowOf(message).severities.verbatim == Severity::remark;
}

std::string_view RuleOf(Message message) { return RowOf(message).rule; }

std::string_view Text(Message message) { return RowOf(message).text; }

}  // namespace mdktoidl
