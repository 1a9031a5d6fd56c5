#include "xmi/passes/element_builder.h"

#include <array>
#include <utility>

#include "xmi/text/scanning.h"

namespace xmi {
namespace {

using model::Symbol;

Symbol MetaclassOf(Word type) {
  if (IsPackage(type)) return metaclasses::package;
  if (IsClass(type)) return metaclasses::class_;
  switch (type) {
    case Word::kDataType:
    case Word::kPrimitiveType:
    case Word::kEnumeration:
      return metaclasses::dataType;
    case Word::kDeploymentSpecification:
      return metaclasses::artifact;
    case Word::kProperty:
    case Word::kExtensionEnd:
      return metaclasses::attribute;
    default:
      return IsDependency(type) ? metaclasses::dependency : Symbol(TextOf(type));
  }
}

const std::array<Symbol, kWordCount>& Metaclasses() {
  static const auto kMetaclasses = [] {
    std::array<Symbol, kWordCount> result;
    for (std::size_t i = 0; i < result.size(); ++i) result[i] = MetaclassOf(static_cast<Word>(i));
    return result;
  }();
  return kMetaclasses;
}

/// How many properties most elements of a type have in the end. Room that need not grow saves
/// memory: most elements of a model are typed.
std::size_t UsualProperties(Word type) {
  if (IsTyped(type)) return 3;  // its name, type and type expression
  return type == Word::kComment ? 1 : 2;
}

// One of the two spellings that XML has for it; tools put line ends around texts in child elements.
bool IsTrue(std::string_view text) {
  text = Trimmed(text);
  return text == "true" || text == "1";
}

/// A value of an enumeration, in UML and in the model.
struct Choice {
  Word feature;
  std::string_view theirs;
  std::string_view ours;
};

constexpr Choice kChoices[] = {
    {Word::kVisibility, "public", values::publicVisibility},
    {Word::kVisibility, "private", values::privateVisibility},
    {Word::kVisibility, "protected", values::protectedVisibility},
    {Word::kVisibility, "package", values::packageVisibility},
    {Word::kDirection, "in", ""},  // which is the default of all elements
    {Word::kDirection, "inout", values::inOut},
    {Word::kDirection, "out", values::out},
    {Word::kDirection, "return", values::return_},
};

}  // namespace

Word DefaultType(Word feature) {
  constexpr std::pair<Word, Word> kDefaults[] = {
      {Word::kOwnedAttribute, Word::kProperty},
      {Word::kOwnedPort, Word::kPort},
      {Word::kOwnedOperation, Word::kOperation},
      {Word::kOwnedReception, Word::kReception},
      {Word::kOwnedParameter, Word::kParameter},
      {Word::kOwnedLiteral, Word::kEnumerationLiteral},
      {Word::kOwnedComment, Word::kComment},
      {Word::kOwnedStereotype, Word::kStereotype},
      {Word::kNestedPackage, Word::kPackage},
      {Word::kNestedArtifact, Word::kArtifact},
      {Word::kGeneralizationFeature, Word::kGeneralization},
      {Word::kPackageImportFeature, Word::kPackageImport},
      {Word::kInterfaceRealizationFeature, Word::kInterfaceRealization},
      {Word::kRealizationFeature, Word::kComponentRealization},
      {Word::kSubstitutionFeature, Word::kSubstitution},
      {Word::kManifestationFeature, Word::kManifestation},
      {Word::kDeploymentFeature, Word::kDeployment},
  };
  for (const auto& [known, type] : kDefaults) {
    if (known == feature) return type;
  }
  return Word::kNone;
}

ItemIndex ElementBuilder::Build(const StartTag& tag, Word type, ItemIndex owner, FileIndex file,
                                std::uint32_t offset) {
  const Symbol metaclass =
      type == Word::kNone ? Symbol(tag.typeName) : Metaclasses()[static_cast<std::size_t>(type)];
  model::Element& element = reading_.model.Create(metaclass, UsualProperties(type));
  const ItemIndex item = reading_.items.Add({&element, owner, offset, file, type, 0});
  for (const StartTag::Feature& feature : tag.features) {
    if (IsReferenceFeature(feature.word)) {
      Refer(item, feature.word, feature.value, false);
    } else {
      SetSimple(item, feature.word, feature.value);
    }
  }
  return item;
}

ItemIndex ElementBuilder::BuildPlaceholder(const StartTag& tag, ItemIndex owner, FileIndex file,
                                           std::uint32_t offset) {
  const ItemIndex item = reading_.items.Add({nullptr, owner, offset, file, Word::kNone, 0});
  Refer(item, tag.tag, tag.href, true);
  return item;
}

void ElementBuilder::SetSimple(ItemIndex item, Word feature, std::string_view text) {
  Item& subject = reading_.items[item];
  model::Element& element = *subject.element;
  switch (feature) {
    case Word::kName:
      return element.SetTextView(properties::name, text);
    case Word::kVisibility:
      return SetChoice(item, feature, properties::visibility, text);
    case Word::kDirection:
      if (subject.type == Word::kParameter) SetChoice(item, feature, properties::direction, text);
      return;
    case Word::kIsReadOnly:
      if (IsTrue(text)) element.SetTextView(properties::changeability, values::frozen);
      return;
    case Word::kIsAbstract:
      if (!IsTrue(text)) return;
      element.SetTextView(properties::isAbstract, "true");
      return element.SetTextView(properties::isAbstractInSmall, "true");
    case Word::kIsConjugated:
      if (IsTrue(text)) subject.flags |= Item::kConjugated;
      return;
    case Word::kBody:
      // The bodies of values are read where the value is.
      if (subject.type != Word::kComment) return;
      return element.SetTextView(properties::text, WithoutCarriageReturns(text));
    default:
      return;
  }
}

void ElementBuilder::SetChoice(ItemIndex item, Word feature, Symbol property,
                               std::string_view text) {
  text = Trimmed(text);
  for (const Choice& choice : kChoices) {
    if (choice.feature != feature || choice.theirs != text) continue;
    if (!choice.ours.empty()) reading_.items[item].element->SetTextView(property, choice.ours);
    return;
  }
  reading_.Warn(item, "value-unknown",
                std::string(TextOf(feature)) + " \"" + std::string(text) + "\" of " +
                    reading_.Describe(item) + " is unknown and passed over");
}

// Text with line ends of another system, or with them written as character references.
std::string_view ElementBuilder::WithoutCarriageReturns(std::string_view text) {
  if (text.find('\r') == text.npos) return text;
  std::string lines;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool first = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (!first) lines += text[i] == '\r' ? '\n' : text[i];
  }
  return reading_.model.Store(lines);
}

void ElementBuilder::Refer(ItemIndex item, Word feature, std::string_view text, bool isHref) {
  Item& subject = reading_.items[item];
  if (feature == Word::kType) subject.flags |= Item::kTyped;
  if (isHref) reading_.files.Follow(subject.file, text, subject.offset);
  const std::uint32_t hash = isHref ? 0 : Ids::HashOf(text);
  reading_.references.push_back({item, feature, isHref, hash, text.data()});
}

}  // namespace xmi
