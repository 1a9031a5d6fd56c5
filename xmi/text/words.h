// The words of UML and XMI that the reader knows: tags, attributes and types.
//
// A name is looked up once and is a small number from there on, so the reader compares and switches
// on numbers. The words of a tool's own vocabulary and of profiles are not here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace xmi {

/// A known name. `kNone` is every other one. Where a feature is called as its type is, but for the
/// case of the first letter, there are two words.
enum class Word : std::uint8_t {
  kNone,
#define XMI_WORD(word, name) word,
#include "xmi/text/words.inc"
#undef XMI_WORD
  kCount,
};

inline constexpr std::size_t kWordCount = static_cast<std::size_t>(Word::kCount);

/// The word of a name; `kNone` when it is not known.
Word FindWord(std::string_view name);
/// The word of a type's name; `kNone` when it is not known.
Word FindType(std::string_view name);

/// The name of a word; empty for `kNone`.
std::string_view TextOf(Word word);

// Features, as attributes or child elements.

inline bool IsSimpleFeature(Word feature) {
  return feature >= Word::kName && feature <= Word::kBody;
}
inline bool IsReferenceFeature(Word feature) {
  return feature >= Word::kType && feature <= Word::kSignalReference;
}
/// Names what a dependency leads to.
inline bool IsSupplierFeature(Word feature) {
  return feature == Word::kSupplier || feature == Word::kContract;
}
/// What it holds becomes an element of the model.
inline bool IsOwnedFeature(Word feature) {
  return feature >= Word::kPackagedElement && feature <= Word::kDeploymentFeature;
}
/// What it holds is one of the owner's members.
inline bool IsMemberFeature(Word feature) {
  return feature >= Word::kPackagedElement && feature <= Word::kOwnedReception;
}

// Types.

inline bool IsType(Word word) { return word >= Word::kPackage; }
inline bool IsPackage(Word type) { return type >= Word::kPackage && type <= Word::kProfile; }
inline bool IsClass(Word type) { return type >= Word::kClass && type <= Word::kFunctionBehavior; }
inline bool IsClassifier(Word type) {
  return type >= Word::kClass && type <= Word::kDeploymentSpecification;
}
/// A property or parameter.
inline bool IsTyped(Word type) {
  return (type >= Word::kProperty && type <= Word::kPort) || type == Word::kParameter;
}
inline bool IsDependency(Word type) {
  return type >= Word::kDependency && type <= Word::kPackageImport;
}
/// A value: a literal, an expression or an instance's.
inline bool IsValue(Word type) {
  return type >= Word::kLiteralInteger && type <= Word::kExpression;
}
/// What is no element of its own: a value, the binding of a template, or a part of that.
inline bool IsPart(Word type) { return type >= Word::kLiteralInteger; }

}  // namespace xmi
