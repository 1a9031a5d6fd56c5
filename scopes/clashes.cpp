#include "scopes/clashes.h"

#include "scopes/declarations.h"

namespace mdktoidl {
namespace {

/// A clash with another declaration, which is shown as well.
void ReportClash(Message message, const Node& node, const Node& other) {
  Diagnostic diagnostic{message, node.Blamed(), {Describe(node), Describe(other)}};
  AddRelated(other, diagnostic);
  Report(std::move(diagnostic));
}

void CompareTwice(const Node& second, const ScopeTable& table) {
  // A module that is exported twice is told of once, and not each of its members.
  const Node* around = second.Enclosing();
  if (around != nullptr && table.ScopeOf(around) != around) return;
  second.Report(Message::nameDeclaredTwice, {Describe(second)});
}

void Compare(const Node& first, const Node& second, const ScopeTable& table) {
  const bool isSameElement = first.Entity() != nullptr && first.Entity() == second.Entity();
  if (isSameElement) return CompareTwice(second, table);
  if (table.ScopeOf(&second) == &first) return;
  const bool isEnumerator = first.isEnumerator() || second.isEnumerator();
  const bool isSameEnum = first.isEnumerator() && first.Enclosing() == second.Enclosing();
  ReportClash(isEnumerator && !isSameEnum ? Message::nameOfEnumeratorClashes : Message::nameClashes,
              second, first);
}

}  // namespace

void CheckDeclaredNames(const Root& root, const DeclaredNames& names, const ScopeTable& table) {
  for (const Node* node : root.Nodes()) {
    const NameNumber name = names.Of(*node);
    if (!MayClash(name) || !node->isDeclared()) continue;
    const auto* around = static_cast<const Node*>(node->NameScope());
    const Node* first = table.Declared(around, name);
    if (first != node && first != nullptr) Compare(*first, *node, table);
    if (around == nullptr || around->Kind().scope != ScopeKind::reservesItsName) continue;
    if (names.Of(*around) == name) {
      node->Report(Message::nameOfScopeAround, {Describe(*node), around->Kind().word});
    }
  }
}

}  // namespace mdktoidl
