#include "tree/unions.h"

#include <array>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "tree/constant_names.h"
#include "tree/data_types.h"
#include "tree/module.h"
#include "tree/type_definitions.h"
#include "types/elements.h"
#include "types/identifier.h"
#include "types/literal.h"
#include "types/one_line.h"
#include "types/text.h"

namespace mdktoidl {

namespace {

/// Whether a type, followed through type definitions, can tell cases apart.
bool isDiscriminating(const Alias& type) {
  constexpr std::array primitives = {"short",          "long",          "long long",
                                     "unsigned short", "unsigned long", "unsigned long long",
                                     "char",           "boolean"};
  if (type.declaration != nullptr) return type.declaration->AsEnumeration() != nullptr;
  for (const char* primitive : primitives) {
    if (type.primitive == primitive) return true;
  }
  return false;
}

/// A character or an escape sequence as its literal; other texts stay, be they literals already or
/// constants' names.
std::string CharacterLabel(const std::string& given) {
  const bool isEscape = given.starts_with('\\') && given.size() > 1;
  if (given.size() != 1 && !isEscape) return given;
  const bool isSpecial = given == "'" || given == "\\";
  return std::string(isSpecial ? "'\\" : "'") + given + "'";
}

std::string BooleanLabel(const std::string& given) {
  const std::string folded = Folded(given);
  if (folded == "true") return "TRUE";
  return folded == "false" ? "FALSE" : given;
}

/// Gives the cases of one union their labels, case by case in their order.
class CaseLabels {
 public:
  /// `place` is the union, whose scope decides how enumerators are spelled.
  CaseLabels(const Node& place, const Alias& discriminator, bool isSimpleUnion)
      : place_(place),
        enumeration_(discriminator.declaration == nullptr
                         ? nullptr
                         : discriminator.declaration->AsEnumeration()),
        primitive_(discriminator.primitive),
        isSimpleUnion_(isSimpleUnion) {}

  /// Sets the labels of the next case; reports what is wrong with those that it has.
  void Label(Case& next) {
    const std::list<std::string> given = next.GivenLabels();
    if (!isSimpleUnion_) {
      for (const std::string& label : given) AddGiven(label, next);
    } else {
      if (!given.empty()) next.Report(Message::caseLabelIgnored);
      // A default case takes what the others leave, so it uses up no enumerator of its own.
      if (!next.isDefault()) AddNextEnumerator(next);
    }
    if (!next.hasLabels() && !next.isDefault()) next.Report(Message::caseLacksLabel);
  }

 private:
  void AddNextEnumerator(Case& labelled) {
    if (enumeration_ == nullptr || taken_ == enumeration_->Literals().size()) return;
    AddEnumerator(*enumeration_->Literals()[taken_++], labelled);
  }

  void AddEnumerator(Node& enumerator, Case& labelled) const {
    const bool isSimple = place_.InCurrentScope(&enumerator);
    labelled.AddLabel(enumerator, isSimple ? Spelling::simple : Spelling::scoped);
  }

  void AddGiven(const std::string& given, Case& labelled) const {
    if (enumeration_ == nullptr) return labelled.AddLabel(Literal(given));
    const std::size_t separator = given.rfind("::");
    const std::string name = separator == std::string::npos ? given : given.substr(separator + 2);
    if (Enumerator* enumerator = enumeration_->FindLiteral(name)) {
      return AddEnumerator(*enumerator, labelled);
    }
    labelled.Report(Message::caseLabelUnknown, {labelled.ScopedName("::"), given});
    labelled.AddLabel(given);
  }

  std::string Literal(const std::string& given) const {
    if (primitive_ == "char") return CharacterLabel(given);
    return primitive_ == "boolean" ? BooleanLabel(given) : given;
  }

  const Node& place_;
  const Enumeration* enumeration_;  // null for a discriminator of another type
  const std::string& primitive_;
  bool isSimpleUnion_;
  std::size_t taken_ = 0;  // how many enumerators the cases of a simple union have taken
};

}  // namespace

Union::Union(mdk::IMdeEntity* element, Container* parent) : Container(element, parent) {
  CreateNodeRef();
  for (mdk::IMdeEntity* attribute : OwnedAttributes(element)) {
    if (isMarked(attribute, stereotypes::unionCase)) {
      if (isConstant(attribute)) Report(Message::unionHasConstant);
      Adopt(MakeNode<Case>(attribute, this));
    } else if (discriminator == nullptr) {
      discriminator = attribute;
    } else {
      Report(Message::unionHasMoreDiscriminators);
    }
  }
  if (children.empty()) Report(Message::unionLacksCase);
  if (discriminator == nullptr) Report(Message::unionLacksDiscriminator);
}

bool Union::isSimpleUnion() const { return isTagTrue(Entity(), tags::isSimple); }

void Union::ResolveTypes(NodeList& deps) {
  EvaluateChildren(deps);
  if (discriminator == nullptr) return;
  const Alias discriminatorType = ResolveDiscriminator();
  CaseLabels labels(*this, discriminatorType, isSimpleUnion());
  for (const auto& child : children) labels.Label(static_cast<Case&>(*child));
}

Alias Union::ResolveDiscriminator() {
  if (hasMultiplicity(discriminator)) Report(Message::discriminatorHasMultiplicity);
  TypeReference reference;
  LookUpType(discriminator, "union ", reference);
  reference.multiplicity.hasConstant = false;  // an error, whatever bounds it
  if (reference.kind == unknownType || reference.kind == templateType) {
    Report(reference.kind == unknownType ? Message::discriminatorUnknown
                                         : Message::discriminatorIsTemplate);
    return {};
  }
  const Node* node = GetNodeRef(reference.definition);
  if (reference.definition != nullptr && node == nullptr) {
    Report(Message::discriminatorNotExported);
    return {};
  }
  Alias resolved =
      node == nullptr ? Alias{nullptr, std::string(reference.predefined)} : Unaliased(*node);
  UseType(std::move(reference), type);
  if (!isDiscriminating(resolved)) Report(Message::discriminatorOfWrongType);
  return resolved;
}

void Union::Repair(const ConstantNames& constants) {
  const BaseType base = BaseOf(type);
  if (!base.isKnown()) return;
  for (const auto& child : children) static_cast<Case&>(*child).RepairLabels(base, constants);
}

namespace {

/// What two labels can't both be: an enumerator, or a literal's sign and value.
using LabelValue = std::tuple<const Node*, bool, std::uint64_t>;

/// Checks the labels of one union, case by case.
class LabelChecks {
 public:
  LabelChecks(const BaseType& type, const ConstantNames& constants)
      : type_(type), constants_(constants) {}

  void Check(const Case& next) {
    for (const Case::Label& label : next.Labels()) CheckLabel(label, next);
    if (!next.isDefault()) return;
    if (default_ != nullptr) {
      next.Report(Message::caseDefaultTwice, {next.ScopedName("::"), default_->Described()},
                  *default_, "the other one");
    } else {
      default_ = &next;
    }
  }

  /// When all cases have been seen.
  void CheckDefault() const {
    const Enumeration* enumeration =
        type_.declaration == nullptr ? nullptr : type_.declaration->AsEnumeration();
    const std::size_t count = enumeration == nullptr ? 2 : enumeration->Literals().size();
    const bool isSmall = enumeration != nullptr || type_.predefined == "boolean";
    if (default_ == nullptr || !isSmall || taken_.size() < count) return;
    default_->Report(Message::caseDefaultImpossible, {default_->ScopedName("::"), type_.Text()});
  }

 private:
  void CheckLabel(const Case::Label& label, const Case& labelled) {
    const Node* named =
        label.named == nullptr ? constants_.Find(labelled, label.literal) : label.named->used;
    const std::string text = named == nullptr ? OneLine(label.literal) : named->Described();
    const auto value = named == nullptr ? ValueOfLiteral(label.literal) : ValueOfNamed(*named);
    if (!value) {
      if (named != nullptr || !constants_.mayBeIncluded(label.literal)) {
        labelled.Report(Message::caseLabelUnfit, {labelled.ScopedName("::"), text, type_.Text()});
      }
      return;
    }
    const auto [first, isNew] = taken_.try_emplace(*value, &labelled);
    if (isNew) return;
    labelled.Report(Message::caseLabelTwice,
                    {labelled.ScopedName("::"), text, first->second->Described()}, *first->second,
                    "the first to have it");
  }

  std::optional<LabelValue> ValueOfLiteral(std::string_view text) const {
    return ValueOf(ReadLiteral(text));
  }

  std::optional<LabelValue> ValueOf(const Literal& literal) const {
    if (!isValueOf(literal, type_.predefined)) return std::nullopt;
    return LabelValue(nullptr, literal.isNegative && literal.number != 0, literal.number);
  }

  std::optional<LabelValue> ValueOfNamed(const Node& named) const {
    const Constant* constant = named.AsConstant();
    if (type_.declaration == nullptr) {
      return constant == nullptr ? std::nullopt : ValueOf(constant->Value());
    }
    const Node* enumerator = constant == nullptr ? &named : constant->ValueAsEnumerator();
    if (enumerator == nullptr || enumerator->Enclosing() != type_.declaration) return std::nullopt;
    return LabelValue(enumerator, false, 0);
  }

  const BaseType& type_;
  const ConstantNames& constants_;
  const Case* default_ = nullptr;
  std::map<LabelValue, const Case*> taken_;
};

}  // namespace

void Union::CheckLegality(const ConstantNames& constants) const {
  const BaseType base = BaseOf(type);
  if (!base.isKnown() || !isDiscriminating({base.declaration, base.predefined})) return;
  LabelChecks checks(base, constants);
  for (const auto& child : children) checks.Check(static_cast<const Case&>(*child));
  checks.CheckDefault();
}

void Union::Unparse(Writer& out) const {
  UnparseHeading(out);
  out << "union " << Written() << " switch (" << type << ')';
  UnparseBody(out);
}

void Union::UnparseForward(Writer& out) const {
  newline(out);
  out << "union " << Written() << ';';
}

void Case::ResolveTypes(NodeList&) {
  static constexpr TypeDiagnostics diagnostics = {
      "union case ", Message::caseBoundUnknown, Message::caseTypeUnknown,
      Message::caseTypeAnonymous, Message::caseTypeNotExported};
  ResolveType(Entity(), diagnostics, type);
}

bool Case::isDefault() const { return isTagTrue(Entity(), tags::isDefault); }

std::list<std::string> Case::GivenLabels() const {
  std::list<std::string> given;
  mdk::IMdeEntity* value = Entity()->EvalExpression(tags::label.Expression(), 0);
  if (value == nullptr) return given;
  if (value->IsKindOf(metaclasses::listExpression)) {
    for (mdk::IMdeEntity* item : Elements(value, properties::expression)) {
      given.push_back(item->GetValue(properties::value, 0));
    }
  } else {
    given.push_back(value->GetValue(properties::valueString, 0));
  }
  // Tools leave an empty label behind where the user typed none.
  given.remove_if([](const std::string& label) { return TrimEndOfString(label).empty(); });
  return given;
}

// The union depends on its discriminator's type already; the label adds nothing to that.
void Case::AddLabel(Node& enumerator, Spelling spelling) {
  Use& use = AddUse(enumerator, UseRole::label, spelling);
  use.isDependency = false;
  labels.push_back({"", &use});
}

namespace {

Spelling SpellingAsIn(std::string_view name) {
  if (name.starts_with("::")) return Spelling::absolute;
  return name.find("::") == std::string_view::npos ? Spelling::simple : Spelling::scoped;
}

}  // namespace

void Case::RepairLabels(const BaseType& type, const ConstantNames& constants) {
  for (Label& label : labels) {
    if (label.named != nullptr) continue;
    if (Node* constant = constants.Find(*this, label.literal)) {
      label.named = &AddUse(*constant, UseRole::label, SpellingAsIn(label.literal));
      Module::NoteUse(*this, *constant);
      continue;
    }
    std::string repaired = LiteralOf(type.predefined, label.literal);
    if (repaired == label.literal) continue;
    Report(Message::caseLabelRepaired, {ScopedName("::"), OneLine(label.literal), repaired});
    label.literal = std::move(repaired);
  }
}

void Case::Unparse(Writer& out) const {
  UnparseComment(Entity(), out);
  for (const Label& label : labels) {
    newline(out);
    out << "case ";
    if (label.named != nullptr) {
      out << *label.named;
    } else {
      out << label.literal;
    }
    out << ':';
  }
  if (isDefault()) {
    newline(out);
    out << "default:";
  }
  indent(out);
  newline(out);
  out << type << ' ' << Written() << type.DeclaratorSuffix() << ';';
  redent(out);
}

}  // namespace mdktoidl
