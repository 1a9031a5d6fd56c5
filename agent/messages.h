// Every message about a model, once: its severity, its rule and its text.
//
// "{}" stands for a piece that the place of use supplies, nearly always a scoped name. Some texts
// lack a blank or begin with a word that seems to belong elsewhere; users and their scripts know
// them so, and they stay.
#pragma once

#include <cstddef>
#include <string_view>

namespace mdktoidl {

/// What stands before and behind what the agent prints of itself.
namespace headings {
inline constexpr const char* warning = "Warning - ";
inline constexpr const char* error = "Error - ";
inline constexpr const char* internalError = "Internal error in IDL exporter agent: ";
inline constexpr const char* hostError = "API Error in IDL exporter agent: ";
inline constexpr const char* otherError = "Error in IDL exporter agent: ";
inline constexpr const char* aborted = "\nIDL exporter aborted.\n";
}  // namespace headings

enum class Severity {
  silent,   ///< told to nobody
  note,     ///< tells of a repair; told to an observer alone
  remark,   ///< a warning that is told to an observer alone: the agent's own text is known without
            ///< it
  warning,  ///< told to all
  error,    ///< keeps the IDL from being written
  fatal     ///< ends the export at once
};

enum class Message : std::size_t {
  // Modules and ordering
  moduleIsEmpty,
  memberDeclaredAlready,
  cannotBeForward,
  orderIsCircular,
  filesAreCircular,
  orderRepaired,
  moduleOpenedAgain,
  fileFramed,
  // Structs
  structHasNoMembers,
  structHasConstant,
  structHasNoPublicMembers,
  enumHasNoEnumerators,
  // Attributes, fields and state members
  attributeBoundUnknown,
  attributeTypeUnknown,
  attributeTypeAnonymous,
  memberTypeAnonymous,
  attributeTypeNotExported,
  typeIsNative,
  boundTooLarge,
  boundNotSize,
  fixedHasWrongDigits,
  useOfWrongKind,
  // Constants
  constantHasMultiplicity,
  constantTypeUnknown,
  constantTypeIsTemplate,
  constantTypeNotExported,
  constantHasNoValue,
  constantValueNotExported,
  constantValueNotSupported,
  constantIsCircular,
  constantValueIsExpression,
  constantTypeHasNoConstants,
  constantValueUnfit,
  constantValueRepaired,
  // Interfaces
  interfaceSupertypeNotExported,
  interfaceBaseNotAbstract,
  interfaceBaseLocal,
  localTypeUsed,
  // Value types
  valueIsAbstractAndCustom,
  valueIsCustomAndTruncated,
  valueSupertypeNotExported,
  valueSupportsOther,
  valueBaseNotFirst,
  valueBaseTwice,
  valueAbstractOfConcrete,
  valueOfCustom,
  valueSupportsMore,
  valueSupportsUnrelated,
  valueAbstractHolds,
  valueBasesReordered,
  stateSizeAdded,
  // Boxed values
  boxedValueLacksAttribute,
  boxedValueHasMoreAttributes,
  boxedValueHasMultiplicity,
  boxedValueTypeUnknown,
  boxedValueTypeNotExported,
  boxedValueTypeIsArray,
  boxedValueOfValue,
  boxedValueNotInModule,
  // Typedefs
  typedefLacksType,
  typedefHasMoreAttributes,
  typedefHasMultiplicity,
  typedefTypeUnknown,
  typedefTemplateUnknown,
  typedefTypeNotExported,
  // Sequences
  sequenceLacksAttribute,
  sequenceHasMoreAttributes,
  sequenceHasMultiplicity,
  sequenceTypeUnknown,
  sequenceTypeAnonymous,
  sequenceTypeNotExported,
  sequenceTypeIsArray,
  // Unions and their cases
  unionLacksCase,
  unionLacksDiscriminator,
  unionHasMoreDiscriminators,
  unionHasConstant,
  discriminatorHasMultiplicity,
  discriminatorUnknown,
  discriminatorIsTemplate,
  discriminatorNotExported,
  discriminatorOfWrongType,
  caseBoundUnknown,
  caseTypeUnknown,
  caseTypeAnonymous,
  caseTypeNotExported,
  caseLabelIgnored,
  caseLabelUnknown,
  caseLacksLabel,
  caseLabelUnfit,
  caseLabelTwice,
  caseDefaultTwice,
  caseDefaultImpossible,
  caseLabelRepaired,
  // Components and their ports
  componentHasOperation,
  componentHasMoreBases,
  facetLacksInterface,
  facetRequires,
  receptacleLacksInterface,
  receptacleRealizes,
  eventSourceLacksType,
  eventSourceRealizes,
  eventSinkLacksType,
  eventSinkRequires,
  portRealizesTooMany,
  portRequiresTooMany,
  // Homes
  homeHasMoreBases,
  homeSupertypeNotProper,
  homeManagesMore,
  homeManagesNone,
  homeHasMoreKeys,
  // Compositions
  compositionLacksHomeExecutor,
  compositionHasMoreHomeExecutors,
  compositionImplementsMore,
  compositionCannotBeSegmented,
  compositionCategoryUnknown,
  homeExecutorImplementsMore,
  homeExecutorManagesMore,
  segmentHasNoDependencies,
  segmentProvidesNothing,
  segmentFacetForeign,
  segmentWritten,
  // Operations
  operationCannotCreate,
  operationOnewayRaises,
  operationRaisesUndefined,
  operationTypeUnknown,
  operationTypeAnonymous,
  operationTypeNotExported,
  finderInValue,
  contextIllegal,
  contextRepaired,
  // Parameters
  parameterReturnsValue,
  parameterBoundUnknown,
  parameterTypeUnknown,
  parameterTypeAnonymous,
  parameterTypeNotExported,
  parameterLacksDirection,
  // Multiplicities
  multiplicityLacksLowerBound,
  multiplicityLacksUpperBound,
  multiplicityNotUnderstood,
  multiplicityBoundNotAllowed,
  multiplicityIsCircular,
  multiplicityOfArray,
  commentRepaired,
  // Types that are given a name
  typedefAdded,
  typeNamed,
  // Names
  nameMissing,
  nameNotIdentifier,
  nameIsEscaped,
  nameIsKeyword,
  nameIsKeywordButForCapitals,
  nameClashes,
  nameOfEnumeratorClashes,
  nameDeclaredTwice,
  nameOfScopeAround,
  nameClashesWithInherited,
  nameInheritedTwice,
  nameClashesWithUsed,
  nameHiddenByInherited,
  nameNotVisible,
  nameMeansOther,
  namesInheritedTooWidely,
  nameEscaped,
  nameRespelled,
  // Names of files
  fileNameUnsafe,
  fileNameOfModuleUnsafe,
  fileNameOfModuleEmpty,
  fileNameIsNoDirectory,
  fileNamesSame,
  fileNamesDifferInCapitals,
  // What ends an export
  settingMissing,
  moduleTooDeep,
  nameUnresolved,
  templateParameterWrong,
  templateParameterCircular,
  hostFailed,
  // What is said besides the lists of errors and warnings
  nothingToExport,
  fileNotOpened,
  count
};

/// Whether the run writes the plain form, whatever compilers say of it, and so tells what is not
/// legal as remarks. False until it is set.
void SetVerbatim(bool isVerbatim);

/// How grave it is in the current run.
Severity SeverityOf(Message message);
/// Whether it says that something is no legal IDL, which only matters where the plain form isn't
/// all that is wanted.
bool isAboutLegality(Message message);
/// A short stable name of what is wrong, in small letters with hyphens ("struct-no-members").
/// Several messages share one where the same is wrong with different constructs.
std::string_view RuleOf(Message message);
std::string_view Text(Message message);

}  // namespace mdktoidl
