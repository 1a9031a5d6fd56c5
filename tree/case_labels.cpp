#include "tree/case_labels.h"

#include <algorithm>

#include "agent/diagnostics.h"
#include "tree/case.h"
#include "tree/enumeration.h"
#include "types/text.h"

namespace mdktoidl {

namespace {

/// A character as its literal; other texts stay, be they literals already or constants' names.
std::string CharacterLabel(const std::string& given, const std::string& prefix) {
  if (given.size() != 1) return given;
  const bool isSpecial = given == "'" || given == "\\";
  return prefix + "'" + (isSpecial ? "\\" : "") + given + "'";
}

std::string BooleanLabel(std::string given) {
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
      isSimpleUnion_(isSimpleUnion) {
  if (enumeration_ == nullptr) return;
  enumeration_->Literals(unused_);
  enumerators_.insert(unused_.begin(), unused_.end());
}

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
  if (unused_.empty()) return {};
  const std::string name = unused_.front();
  unused_.pop_front();
  return {enumeration_->LiteralFor(place_, name)};
}

std::string CaseLabels::Spell(const std::string& given, const Case& labelled) const {
  if (enumeration_ != nullptr) return SpellEnumerator(given, labelled);
  if (primitive_ == "char") return CharacterLabel(given, "");
  if (primitive_ == "wchar") return CharacterLabel(given, "L");
  if (primitive_ == "boolean") return BooleanLabel(given);
  return given;
}

std::string CaseLabels::SpellEnumerator(const std::string& given, const Case& labelled) const {
  const std::size_t separator = given.rfind("::");
  const std::string name = separator == std::string::npos ? given : given.substr(separator + 2);
  if (enumerators_.contains(name)) return enumeration_->LiteralFor(place_, name);
  Report(Message::caseLabelUnknown, {labelled.ScopedName("::"), given});
  return given;
}

}  // namespace mdktoidl
