#include "tree/case_labels.h"

#include "agent/diagnostics.h"
#include "tree/case.h"
#include "tree/enumeration.h"
#include "types/text.h"

namespace mdktoidl {

namespace {

/// A character or an escape sequence as its literal; other texts stay, be they literals already or
/// constants' names.
std::string CharacterLabel(const std::string& given) {
  const bool isEscape = given.starts_with('\\') && given.size() > 1;
  if (given.size() != 1 && !isEscape) return given;
  const bool isSpecial = given == "'" || given == "\\";
  return std::string(isSpecial ? "'\\" : "'") + given + "'";
}

std::string BooleanLabel(const std::string& given) {
  std::string upper = given;
  for (char& character : upper) {
    if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 'a' + 'A');
  }
  return upper == "TRUE" || upper == "FALSE" ? upper : given;
}

}  // namespace

CaseLabels::CaseLabels(const Node& place, const Alias& discriminatorType, bool isSimpleUnion)
    : place_(place),
      enumeration_(discriminatorType.declaration == nullptr
                       ? nullptr
                       : discriminatorType.declaration->AsEnumeration()),
      primitive_(discriminatorType.primitive),
      isSimpleUnion_(isSimpleUnion) {}

void CaseLabels::Label(Case& next) {
  const std::list<std::string> given = next.GivenLabels();
  std::list<std::string> labels;
  if (!isSimpleUnion_) {
    for (const std::string& label : given) labels.push_back(Spell(label, next));
  } else {
    if (!given.empty()) Report(Message::caseLabelIgnored, {next.ScopedName("::")});
    // A default case takes what the others leave, so it uses up no enumerator of its own.
    if (!next.isDefault()) labels = TakeEnumerator();
  }
  if (labels.empty() && !next.isDefault()) {
    Report(Message::caseLacksLabel, {next.ScopedName("::")});
  }
  next.SetLabels(std::move(labels));
}

std::list<std::string> CaseLabels::TakeEnumerator() {
  if (enumeration_ == nullptr || taken_ == enumeration_->Literals().size()) return {};
  return {enumeration_->LiteralFor(place_, enumeration_->Literals()[taken_++])};
}

std::string CaseLabels::Spell(const std::string& given, const Case& labelled) const {
  if (enumeration_ != nullptr) return SpellEnumerator(given, labelled);
  if (primitive_ == "char") return CharacterLabel(given);
  if (primitive_ == "boolean") return BooleanLabel(given);
  return given;
}

std::string CaseLabels::SpellEnumerator(const std::string& given, const Case& labelled) const {
  const std::size_t separator = given.rfind("::");
  const std::string name = separator == std::string::npos ? given : given.substr(separator + 2);
  if (enumeration_->hasLiteralNamed(name)) return enumeration_->LiteralFor(place_, name);
  Report(Message::caseLabelUnknown, {labelled.ScopedName("::"), given});
  return given;
}

}  // namespace mdktoidl
