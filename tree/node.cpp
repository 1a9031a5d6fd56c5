#include "tree/node.h"

#include <algorithm>
#include <utility>

#include "agent/diagnostics.h"
#include "agent/vocabulary.h"
#include "output/comment.h"
#include "tree/container.h"
#include "tree/node_registry.h"

namespace mdktoidl {

Definition::Definition(mdk::IMdeEntity* element, const Definition* enclosing)
    : scope(enclosing), entity(element) {
  if (entity == nullptr) return;
  const std::string_view stored = nodeRegistry.Store(entity->GetValue(properties::name, 0));
  name = stored.data();
  nameSize = static_cast<std::uint32_t>(stored.size()) & 0x7FFFFFFF;
}

void Definition::BuildScopedName(std::string& result, std::string_view separator) const {
  if (scope != nullptr) {
    scope->BuildScopedName(result, separator);
    result += separator;
  }
  result += Name();
}

std::string Definition::ScopedName(std::string_view separator) const {
  std::string result;
  BuildScopedName(result, separator);
  return result;
}

namespace {

int DepthOf(const Definition* definition) {
  int depth = 0;
  for (; definition->Scope() != nullptr; definition = definition->Scope()) ++depth;
  return depth;
}

/// The outermost of two declarations' scopes, or they themselves, that are not the same.
std::pair<const Definition*, const Definition*> WhereTheyPart(const Definition* left,
                                                              const Definition* right) {
  int leftDepth = DepthOf(left);
  int rightDepth = DepthOf(right);
  for (; leftDepth > rightDepth; --leftDepth) left = left->Scope();
  for (; rightDepth > leftDepth; --rightDepth) right = right->Scope();
  for (; left->Scope() != right->Scope(); right = right->Scope()) left = left->Scope();
  return {left, right};
}

bool BeginAlike(std::string_view left, std::string_view right) {
  return left.starts_with(right) || right.starts_with(left);
}

}  // namespace

bool Definition::isInside(const Definition* around) const {
  if (around == nullptr) return true;
  const Definition* each = this;
  while (each != nullptr && each != around) each = each->scope;
  return each != nullptr;
}

// The texts are made only where the scopes part and yet go on alike, which is rare.
bool Definition::InCurrentScope(const Definition* other) const {
  const Definition* around = other->NameScope();
  if (isInside(around)) return true;
  const auto [mine, its] = WhereTheyPart(this, around);
  return BeginAlike(mine->Name(), its->Name()) &&
         ScopedName("::").starts_with(around->ScopedName("::"));
}

Node::Node(mdk::IMdeEntity* element, Container* parent)
    : Definition(element, parent), serial(nodeRegistry.Enter(this, Name())), lastSerial(serial) {}

void* Node::operator new(std::size_t size) { return nodeRegistry.Allocate(size); }

void Node::CreateNodeRef() { nodeRegistry.Register(Entity(), serial); }

Node* Node::GetNodeRef(mdk::IMdeEntity* element) {
  return element == nullptr ? nullptr : nodeRegistry.Find(element);
}

void Node::UnparseForward(Writer&) const {}

bool Node::declares(std::string_view) const { return false; }

void Node::EvaluateTypes(NodeList& deps) {
  ResolveTypes(deps);
  for (const Use& use : uses) {
    if (use.isDependency) deps.push_back(use.used);
  }
}

void Node::Report(Message message) const { Report(message, {ScopedName("::")}); }

void Node::Report(Message message, std::initializer_list<std::string_view> pieces) const {
  mdktoidl::Report(message, Entity(), pieces);
}

void Node::ResolveType(mdk::IMdeEntity* typed, const TypeDiagnostics& diagnostics,
                       WrittenType& type, UseRole role) {
  TypeReference reference;
  LookUpType(typed, diagnostics.word, reference);
  ReportType(reference, diagnostics);
  UseType(std::move(reference), type, role);
}

// The multiplicity is told of first: looking up the type may end the export.
void Node::LookUpType(mdk::IMdeEntity* typed, std::string_view word,
                      TypeReference& reference) const {
  reference.multiplicity = GetMultiplicity(typed);
  ReportMultiplicity(reference.multiplicity, word);
  GetType(typed, reference);
  ReportArray(reference, word);
}

void Node::ReportMultiplicity(const Multiplicity& multiplicity, std::string_view word) const {
  if (!multiplicity.fault) return;
  Report(*multiplicity.fault, {std::string(word) + ScopedName("::")});
}

void Node::ReportArray(const TypeReference& reference, std::string_view word) const {
  if (!reference.multiplicity.isCollection || reference.declaratorSuffix.empty()) return;
  Report(Message::multiplicityOfArray, {std::string(word) + ScopedName("::")});
}

void Node::ReportType(const TypeReference& reference, const TypeDiagnostics& diagnostics) const {
  const Multiplicity& multiplicity = reference.multiplicity;
  if (multiplicity.hasConstant && diagnostics.boundUnknown) {
    const Node* bound = GetNodeRef(multiplicity.constant);
    if (bound == nullptr || !bound->declaresConstant()) Report(*diagnostics.boundUnknown);
  }
  if (reference.kind == unknownType) return Report(diagnostics.typeUnknown);
  if (reference.isAnonymous && diagnostics.typeAnonymous) Report(*diagnostics.typeAnonymous);
  if (reference.definition != nullptr && GetNodeRef(reference.definition) == nullptr) {
    Report(diagnostics.typeNotExported);
  }
}

void Node::UseType(TypeReference&& reference, WrittenType& type, UseRole role) {
  const Use* boundUse = nullptr;
  Node* bound =
      reference.multiplicity.hasConstant ? GetNodeRef(reference.multiplicity.constant) : nullptr;
  if (bound != nullptr && bound->declaresConstant()) {
    const bool isNamed = reference.multiplicity.isBoundNamed;
    Use& use =
        AddUse(*bound, UseRole::bound, isNamed ? SpellingInTemplate(*bound) : Spelling::none);
    if (isNamed) boundUse = &use;
  }
  const Use* named = nullptr;
  Node* node = reference.kind == unknownType ? nullptr : GetNodeRef(reference.definition);
  if (node != nullptr && reference.isAnonymous) {
    Use& use = AddUse(*node, UseRole::element, SpellingInTemplate(*node));
    use.isInSequence = !reference.sequences.empty();
    named = &use;
  } else if (node != nullptr) {
    Use& use = AddUse(*node, role);
    Rename(use, reference.name);
    named = &use;
  }
  type.Set(std::move(reference), named, boundUse);
}

Use& Node::AddUse(Node& used, UseRole role, Spelling spelling) {
  Use& use = nodeRegistry.MakeUse();
  use.user = this;
  use.used = &used;
  use.role = role;
  use.spelling = spelling;
  use.isDependency = true;
  use.isInScope = isInside(used.NameScope());
  uses.Append(use);
  return use;
}

void Node::Rename(Use& use, std::string_view name) {
  if (name == use.Name()) return;
  name = nodeRegistry.Store(name);
  use.name = name.data();
  use.nameSize = static_cast<std::uint32_t>(name.size());
}

Spelling Node::SpellingOf(const Node& other) const {
  return InCurrentScope(&other) ? Spelling::simple : Spelling::scoped;
}

// Plain types don't look for nearer declarations that hide them, templates do. It is deliberate:
// the texts of both are known so.
Spelling Node::SpellingInTemplate(const Node& other) const {
  return isHiddenHere(other) ? Spelling::scoped : SpellingOf(other);
}

/// Whether the simple name of `other`, which stands in a scope around this, means something else
/// here.
bool Node::isHiddenHere(const Node& other) const {
  const Node* each = Enclosing();
  for (; each != nullptr && each != other.Scope(); each = each->Enclosing()) {
    if (each->declares(other.Name())) return true;
  }
  return false;
}

void Node::UnparseComment(mdk::IMdeEntity* element, Writer& out) const {
  WriteComments(element, out);
}

void Node::UnparseHeading(Writer& out) const {
  newline(out);
  UnparseComment(Entity(), out);
  newline(out);
}

void SortByCreation(NodeList& nodes) {
  if (nodes.size() < 2) return;
  const auto earlier = [](const Node* left, const Node* right) {
    return left->Serial() < right->Serial();
  };
  std::sort(nodes.begin(), nodes.end(), earlier);
  nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
}

}  // namespace mdktoidl
