#include "xmi/passes/element_builder.h"

#include <array>
#include <utility>

namespace xmi {
namespace {

using model::Symbol;

Symbol MetaclassOf(Word type) {
  if (IsPackage(type)) return metaclasses::package;
  if (type >= Word::kClass && type <= Word::kFunctionBehavior) return metaclasses::class_;
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

const std::array<Symbol, static_cast<std::size_t>(Word::kCount)>& Metaclasses() {
  static const auto kMetaclasses = [] {
    std::array<Symbol, static_cast<std::size_t>(Word::kCount)> result;
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

bool IsTrue(std::string_view text) { return text == "true" || text == "1"; }

std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(" \t\r\n");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t\r\n") - begin + 1);
}

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

bool IsOwnedFeature(Word feature) {
  return feature >= Word::kPackagedElement && feature <= Word::kDeploymentFeature;
}

bool IsReferenceFeature(Word feature) {
  return feature >= Word::kType && feature <= Word::kSignalReference;
}

bool IsSimpleFeature(Word feature) { return feature >= Word::kName && feature <= Word::kBody; }

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

ItemIndex ElementBuilder::BuildPlace(const StartTag& tag, ItemIndex owner, FileIndex file,
                                     std::uint32_t offset) {
  const ItemIndex item = reading_.items.Add({nullptr, owner, offset, file, Word::kNone, 0});
  Refer(item, tag.tag, tag.href, true);
  return item;
}

bool ElementBuilder::SetSimple(ItemIndex item, Word feature, std::string_view text) {
  Item& subject = reading_.items[item];
  switch (feature) {
    case Word::kName:
      subject.element->SetTextView(properties::name, text);
      return true;
    case Word::kVisibility:
      SetVisibility(item, Trimmed(text));
      return true;
    case Word::kDirection:
      SetDirection(item, Trimmed(text));
      return true;
    case Word::kIsReadOnly:
      if (IsTrue(Trimmed(text)))
        subject.element->SetTextView(properties::changeability, values::frozen);
      return true;
    case Word::kIsAbstract:
      if (IsTrue(Trimmed(text))) {
        subject.element->SetTextView(properties::isAbstract, "true");
        subject.element->SetTextView(properties::isAbstractInSmall, "true");
      }
      return true;
    case Word::kIsConjugated:
      if (IsTrue(Trimmed(text))) subject.flags |= Item::kConjugated;
      return true;
    case Word::kBody:
      if (subject.type == Word::kComment) {
        subject.element->SetTextView(properties::text, WithoutCarriageReturns(text));
      }
      return true;
    default:
      return false;
  }
}

void ElementBuilder::SetVisibility(ItemIndex item, std::string_view text) {
  constexpr std::pair<std::string_view, std::string_view> kValues[] = {
      {"public", values::publicVisibility},
      {"private", values::privateVisibility},
      {"protected", values::protectedVisibility},
      {"package", values::packageVisibility}};
  for (const auto& [theirs, ours] : kValues) {
    if (theirs != text) continue;
    reading_.items[item].element->SetTextView(properties::visibility, ours);
    return;
  }
  WarnOfValue(item, "visibility", text);
}

void ElementBuilder::SetDirection(ItemIndex item, std::string_view text) {
  constexpr std::pair<std::string_view, std::string_view> kValues[] = {{"in", values::in},
                                                                       {"inout", values::inOut},
                                                                       {"out", values::out},
                                                                       {"return", values::return_}};
  if (reading_.items[item].type != Word::kParameter) return;
  for (const auto& [theirs, ours] : kValues) {
    if (theirs != text) continue;
    if (ours != values::in) reading_.items[item].element->SetTextView(properties::direction, ours);
    return;
  }
  WarnOfValue(item, "direction", text);
}

void ElementBuilder::WarnOfValue(ItemIndex item, std::string_view feature, std::string_view text) {
  reading_.Warn(item, "value-unknown",
                std::string(feature) + " \"" + std::string(text) + "\" of " +
                    reading_.Describe(item) + " is unknown and passed over");
}

// Text with line ends of another system, or with them written as character references.
std::string_view ElementBuilder::WithoutCarriageReturns(std::string_view text) {
  if (text.find('\r') == std::string_view::npos) return text;
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
