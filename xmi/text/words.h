// The words of UML and XMI that the reader knows: tags, attributes and types.
//
// A name is looked up once and is a small number from there on, so the reader compares and switches
// on numbers. The words of a tool's own vocabulary and of profiles are not here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace xmi {

/// A known name. `kNone` is every other one.
enum class Word : std::uint8_t {
  kNone,
  // Attributes of XMI itself.
  kId,
  kIdref,
  kHref,
  kNil,
  kXmi,
  kExtension,
  // Simple features.
  kName,
  kVisibility,
  kIsReadOnly,
  kIsAbstract,
  kDirection,
  kIsConjugated,
  kBody,
  kLanguage,
  kSymbol,
  kValue,
  kKey,
  kSource,
  // References.
  kType,
  kRaisedException,
  kGeneral,
  kClient,
  kSupplier,
  kContract,
  kUtilizedElement,
  kImportedPackage,
  kClientDependency,
  kAnnotatedElement,
  kSignalReference,
  kSignature,
  kActual,
  kInstance,
  // Owned elements that become elements of the model.
  kPackagedElement,
  kOwnedMember,
  kOwnedType,
  kOwnedStereotype,
  kNestedPackage,
  kNestedClassifier,
  kNestedArtifact,
  kOwnedAttribute,
  kOwnedPort,
  kOwnedOperation,
  kOwnedReception,
  kOwnedParameter,
  kOwnedLiteral,
  kOwnedComment,
  kGeneralizationFeature,
  kPackageImportFeature,
  kInterfaceRealizationFeature,
  kRealizationFeature,
  kSubstitutionFeature,
  kManifestationFeature,
  kDeploymentFeature,
  // Owned elements that say something about their owner.
  kLowerValue,
  kUpperValue,
  kDefaultValue,
  kSpecification,
  kOperand,
  kTemplateBinding,
  kParameterSubstitution,
  kOwnedActual,
  kOwnedTemplateSignature,
  kOwnedEnd,
  kEAnnotations,
  kDetails,
  // Types.
  kPackage,
  kModel,
  kProfile,
  kClass,
  kComponent,
  kAssociationClass,
  kNode,
  kDevice,
  kExecutionEnvironment,
  kActivity,
  kStateMachine,
  kProtocolStateMachine,
  kInteraction,
  kOpaqueBehavior,
  kFunctionBehavior,
  kInterface,
  kDataType,
  kPrimitiveType,
  kEnumeration,
  kSignal,
  kArtifact,
  kDeploymentSpecification,
  kProperty,
  kExtensionEnd,
  kPort,
  kOperation,
  kReception,
  kParameter,
  kEnumerationLiteral,
  kComment,
  kGeneralization,
  kDependency,
  kUsage,
  kAbstraction,
  kRealization,
  kComponentRealization,
  kInterfaceRealization,
  kSubstitution,
  kManifestation,
  kDeployment,
  kPackageImport,
  kStereotype,
  kInstanceSpecification,
  kLiteralInteger,
  kLiteralUnlimitedNatural,
  kLiteralReal,
  kLiteralString,
  kLiteralBoolean,
  kLiteralNull,
  kInstanceValue,
  kOpaqueExpression,
  kExpression,
  kTemplateBindingType,
  kTemplateParameterSubstitution,
  kCount,
};

/// The word of a name; `kNone` when it is not known. A name that is both a tag and a type, but for
/// the case of its first letter, is two words.
Word FindWord(std::string_view name);

/// The name of a word; empty for `kNone`.
std::string_view TextOf(Word word);

}  // namespace xmi
