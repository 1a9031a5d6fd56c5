#include "tree/legality.h"

#include "tree/constant_names.h"
#include "tree/data_types.h"
#include "tree/local_types.h"
#include "tree/supported_interfaces.h"
#include "tree/type_definitions.h"

namespace mdktoidl {

namespace {

/// Through type definitions, which may stand for an interface, but for no exception.
Meanings MeaningsOf(const Node& used) {
  const Node* declaration = Unaliased(used).declaration;
  return used.Means() | (declaration == nullptr ? Meanings() : declaration->Means());
}

void CheckMeaning(const Node& user, const Use& use) {
  const Expectation expected = user.Expects(use.role);
  if (expected.meanings == 0 || (use.used->Means() & expected.meanings) != 0) return;
  if ((MeaningsOf(*use.used) & expected.meanings) != 0) return;
  user.Report(Message::useOfWrongKind, {user.Described(), use.used->Described(), expected.word},
              *use.used, "declared here");
}

void CheckNamedBound(const Node& user, const Use& use) {
  const Constant* constant = use.used->AsConstant();
  if (use.role != UseRole::bound || use.spelling == Spelling::none || constant == nullptr) return;
  const BaseType type = constant->Base();
  const Literal size = constant->Value();
  const bool isSize =
      KindOfLiterals(type.predefined) == LiteralKind::integer && isValueOf(size, "unsigned long");
  if (isSize || !type.isKnown()) return;
  user.Report(Message::boundNotSize, {user.Described(), constant->Described()}, *constant,
              "declared here");
}

void CheckUses(const Node& user) {
  for (const Use& use : user.Used()) {
    CheckMeaning(user, use);
    CheckNamedBound(user, use);
  }
}

}  // namespace

void RepairDeclarations(const Root& root) {
  const ConstantNames constants(root);
  for (Node* node : root.Nodes()) {
    if (node->isDeclared()) node->Repair(constants);
  }
}

void CheckDeclarations(const Root& root) {
  const ConstantNames constants(root);
  for (const Node* node : root.Nodes()) {
    if (!node->isDeclared()) continue;
    CheckUses(*node);
    node->CheckLegality(constants);
  }
  CheckLocalTypes(root);
  CheckSupportedInterfaces(root);
}

}  // namespace mdktoidl
