#include "xmi/text/words.h"

#include <array>
#include <cstring>

namespace xmi {
namespace {

struct Entry {
  std::string_view text;
  Word word;
};

constexpr Entry kEntries[] = {
    {"id", Word::kId},
    {"idref", Word::kIdref},
    {"href", Word::kHref},
    {"nil", Word::kNil},
    {"XMI", Word::kXmi},
    {"Extension", Word::kExtension},
    {"name", Word::kName},
    {"visibility", Word::kVisibility},
    {"isReadOnly", Word::kIsReadOnly},
    {"isAbstract", Word::kIsAbstract},
    {"direction", Word::kDirection},
    {"isConjugated", Word::kIsConjugated},
    {"body", Word::kBody},
    {"language", Word::kLanguage},
    {"symbol", Word::kSymbol},
    {"value", Word::kValue},
    {"key", Word::kKey},
    {"source", Word::kSource},
    {"type", Word::kType},
    {"raisedException", Word::kRaisedException},
    {"general", Word::kGeneral},
    {"client", Word::kClient},
    {"supplier", Word::kSupplier},
    {"contract", Word::kContract},
    {"utilizedElement", Word::kUtilizedElement},
    {"importedPackage", Word::kImportedPackage},
    {"clientDependency", Word::kClientDependency},
    {"annotatedElement", Word::kAnnotatedElement},
    {"signal", Word::kSignalReference},
    {"signature", Word::kSignature},
    {"actual", Word::kActual},
    {"instance", Word::kInstance},
    {"packagedElement", Word::kPackagedElement},
    {"ownedMember", Word::kOwnedMember},
    {"ownedType", Word::kOwnedType},
    {"ownedStereotype", Word::kOwnedStereotype},
    {"nestedPackage", Word::kNestedPackage},
    {"nestedClassifier", Word::kNestedClassifier},
    {"nestedArtifact", Word::kNestedArtifact},
    {"ownedAttribute", Word::kOwnedAttribute},
    {"ownedPort", Word::kOwnedPort},
    {"ownedOperation", Word::kOwnedOperation},
    {"ownedReception", Word::kOwnedReception},
    {"ownedParameter", Word::kOwnedParameter},
    {"ownedLiteral", Word::kOwnedLiteral},
    {"ownedComment", Word::kOwnedComment},
    {"generalization", Word::kGeneralizationFeature},
    {"packageImport", Word::kPackageImportFeature},
    {"interfaceRealization", Word::kInterfaceRealizationFeature},
    {"realization", Word::kRealizationFeature},
    {"substitution", Word::kSubstitutionFeature},
    {"manifestation", Word::kManifestationFeature},
    {"deployment", Word::kDeploymentFeature},
    {"lowerValue", Word::kLowerValue},
    {"upperValue", Word::kUpperValue},
    {"defaultValue", Word::kDefaultValue},
    {"specification", Word::kSpecification},
    {"operand", Word::kOperand},
    {"templateBinding", Word::kTemplateBinding},
    {"parameterSubstitution", Word::kParameterSubstitution},
    {"ownedActual", Word::kOwnedActual},
    {"ownedTemplateSignature", Word::kOwnedTemplateSignature},
    {"ownedEnd", Word::kOwnedEnd},
    {"eAnnotations", Word::kEAnnotations},
    {"details", Word::kDetails},
    {"Package", Word::kPackage},
    {"Model", Word::kModel},
    {"Profile", Word::kProfile},
    {"Class", Word::kClass},
    {"Component", Word::kComponent},
    {"AssociationClass", Word::kAssociationClass},
    {"Node", Word::kNode},
    {"Device", Word::kDevice},
    {"ExecutionEnvironment", Word::kExecutionEnvironment},
    {"Activity", Word::kActivity},
    {"StateMachine", Word::kStateMachine},
    {"ProtocolStateMachine", Word::kProtocolStateMachine},
    {"Interaction", Word::kInteraction},
    {"OpaqueBehavior", Word::kOpaqueBehavior},
    {"FunctionBehavior", Word::kFunctionBehavior},
    {"Interface", Word::kInterface},
    {"DataType", Word::kDataType},
    {"PrimitiveType", Word::kPrimitiveType},
    {"Enumeration", Word::kEnumeration},
    {"Signal", Word::kSignal},
    {"Artifact", Word::kArtifact},
    {"DeploymentSpecification", Word::kDeploymentSpecification},
    {"Property", Word::kProperty},
    {"ExtensionEnd", Word::kExtensionEnd},
    {"Port", Word::kPort},
    {"Operation", Word::kOperation},
    {"Reception", Word::kReception},
    {"Parameter", Word::kParameter},
    {"EnumerationLiteral", Word::kEnumerationLiteral},
    {"Comment", Word::kComment},
    {"Generalization", Word::kGeneralization},
    {"Dependency", Word::kDependency},
    {"Usage", Word::kUsage},
    {"Abstraction", Word::kAbstraction},
    {"Realization", Word::kRealization},
    {"ComponentRealization", Word::kComponentRealization},
    {"InterfaceRealization", Word::kInterfaceRealization},
    {"Substitution", Word::kSubstitution},
    {"Manifestation", Word::kManifestation},
    {"Deployment", Word::kDeployment},
    {"PackageImport", Word::kPackageImport},
    {"Stereotype", Word::kStereotype},
    {"InstanceSpecification", Word::kInstanceSpecification},
    {"LiteralInteger", Word::kLiteralInteger},
    {"LiteralUnlimitedNatural", Word::kLiteralUnlimitedNatural},
    {"LiteralReal", Word::kLiteralReal},
    {"LiteralString", Word::kLiteralString},
    {"LiteralBoolean", Word::kLiteralBoolean},
    {"LiteralNull", Word::kLiteralNull},
    {"InstanceValue", Word::kInstanceValue},
    {"OpaqueExpression", Word::kOpaqueExpression},
    {"Expression", Word::kExpression},
    {"TemplateBinding", Word::kTemplateBindingType},
    {"TemplateParameterSubstitution", Word::kTemplateParameterSubstitution},
};

constexpr std::size_t kSlots = 1024;

// The length and three letters tell nearly all words apart; the rest are next to each other.
constexpr std::size_t Hash(std::string_view name) {
  const auto letter = [&](std::size_t i) { return static_cast<unsigned char>(name[i]); };
  const std::size_t size = name.size();
  const std::uint32_t mixed = (letter(0) * 0x9E3779B1u) ^ (letter(size / 2) * 0x85EBCA6Bu) ^
                              (letter(size - 1) * 0xC2B2AE35u) ^
                              (static_cast<std::uint32_t>(size) * 0x27D4EB2Fu);
  return (mixed >> 16) % kSlots;
}

// Positions in `kEntries` plus 1; 0 is a free slot.
constexpr std::array<std::uint8_t, kSlots> MakeSlots() {
  std::array<std::uint8_t, kSlots> slots{};
  std::uint8_t number = 0;
  for (const Entry& entry : kEntries) {
    ++number;
    std::size_t slot = Hash(entry.text);
    while (slots[slot] != 0) slot = (slot + 1) % kSlots;
    slots[slot] = number;
  }
  return slots;
}

constexpr std::array<std::uint8_t, kSlots> kWordSlots = MakeSlots();

constexpr std::array<std::string_view, static_cast<std::size_t>(Word::kCount)> MakeTexts() {
  std::array<std::string_view, static_cast<std::size_t>(Word::kCount)> texts{};
  for (const Entry& entry : kEntries) texts[static_cast<std::size_t>(entry.word)] = entry.text;
  return texts;
}

constexpr auto kTexts = MakeTexts();

}  // namespace

Word FindWord(std::string_view name) {
  if (name.empty()) return Word::kNone;
  for (std::size_t slot = Hash(name); kWordSlots[slot] != 0; slot = (slot + 1) % kSlots) {
    const Entry& entry = kEntries[kWordSlots[slot] - 1];
    if (entry.text.size() == name.size() &&
        std::memcmp(entry.text.data(), name.data(), name.size()) == 0) {
      return entry.word;
    }
  }
  return Word::kNone;
}

std::string_view TextOf(Word word) { return kTexts[static_cast<std::size_t>(word)]; }

}  // namespace xmi
