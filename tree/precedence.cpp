#include "tree/precedence.h"

#include <limits>

namespace mdktoidl {

namespace {

constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

bool isNamedAsType(const Use& use) {
  return use.role == UseRole::type || use.role == UseRole::element;
}

/// Whether a declaration may be used so inside itself, where it is not complete.
bool isLegalInside(const Use& use) {
  if (!isNamedAsType(use)) return !isInHeader(use.role) && use.role != UseRole::value;
  const Construct& kind = use.used->Kind();
  if (kind.forward == Forward::inSequences) return use.isInSequence;
  return kind.forward == Forward::asType || kind.inheritance == Inheritance::inherits;
}

}  // namespace

Precedence::Precedence(const Root& root) : nodes_(root.Nodes()), units_(nodes_.size(), none) {
  for (std::uint32_t serial = 0; serial < nodes_.size(); ++serial) {
    const Node& node = *nodes_[serial];
    const Node* around = node.Enclosing();
    if (node.isModule() || &node == &root) continue;
    const bool isUnit = around == nullptr || around->isModule();
    units_[serial] = isUnit ? serial : units_[around->Serial()];
  }
}

bool Precedence::isHard(const Use& use) {
  if (!isNamedAsType(use)) return true;
  switch (use.used->Kind().forward) {
    case Forward::asType:
      return false;
    case Forward::inSequences:
      return !use.isInSequence || use.user->NamedType() != &use;
    default:
      return true;
  }
}

/// The struct or union of which a used definition names sequences: only that itself may use them
/// before it is complete. Null for all other uses.
const Node* Precedence::ElementToComplete(const Use& use) {
  const Use* named = use.used->NamedType();
  if (named == nullptr || !named->isInSequence) return nullptr;
  const Node& element = *named->used;
  const bool isStructured = element.Kind().forward == Forward::inSequences;
  return !isStructured || element.Encloses(*use.user) ? nullptr : &element;
}

std::optional<Demand> Precedence::DemandOn(const Use& use, const Node& used, bool isHard) const {
  const std::uint32_t before = units_[used.Serial()];
  const std::uint32_t after = units_[use.user->Serial()];
  if (before == none || after == none) return std::nullopt;
  if (before == after) return DemandInside(use, used, isHard);
  // What is nested in another declaration is not there before that is.
  return Demand{nodes_[before], nodes_[after], &use, isHard || before != used.Serial()};
}

/// The same when both are in one declaration.
std::optional<Demand> Precedence::DemandInside(const Use& use, const Node& used,
                                               bool isHard) const {
  const Node* user = use.user;
  if (used.Encloses(*user)) {
    if (isLegalInside(use)) return std::nullopt;
    return Demand{&used, &used, &use, true};
  }
  if (user->Encloses(used)) {
    if (!isInHeader(use.role)) return std::nullopt;
    return Demand{user, user, &use, true};
  }
  while (!user->Enclosing()->Encloses(used)) user = user->Enclosing();
  const Node* around = user->Enclosing();
  if (around->AsOrderedScope() == nullptr) return std::nullopt;
  const Node* before = &used;
  while (before->Enclosing() != around) before = before->Enclosing();
  return Demand{before, user, &use, isHard || before != &used};
}

}  // namespace mdktoidl
