#include "tree/node.h"

#include <algorithm>
#include <utility>

#include "agent/diagnostics.h"
#include "agent/vocabulary.h"
#include "output/comment.h"
#include "tree/container.h"
#include "tree/node_registry.h"
#include "types/one_line.h"
#include "types/text.h"

namespace mdktoidl {

Definition::Definition(mdk::IMdeEntity* element, const Definition* enclosing)
    : Definition(element,
                 element == nullptr ? std::string() : element->GetValue(properties::name, 0),
                 enclosing) {}

Definition::Definition(mdk::IMdeEntity* element, std::string_view given,
                       const Definition* enclosing)
    : scope(enclosing), entity(element) {
  const std::string_view stored = nodeRegistry.Store(given);
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

Node::Node(mdk::IMdeEntity* element, std::string_view name, Container* parent)
    : Definition(element, name, parent),
      serial(nodeRegistry.Enter(this, Name())),
      lastSerial(serial) {}

void* Node::operator new(std::size_t size) { return nodeRegistry.Allocate(size); }

void Node::CreateNodeRef() { nodeRegistry.Register(Entity(), serial); }

Node* Node::GetNodeRef(mdk::IMdeEntity* element) {
  return element == nullptr ? nullptr : nodeRegistry.Find(element);
}

void Node::UnparseForward(Writer&) const {}

const Use* Node::NamedType() const {
  const WrittenType* defined = DefinedType();
  const bool isName = defined != nullptr && defined->DeclaratorSuffix().empty();
  return isName ? defined->Named() : nullptr;
}

const WrittenType* Node::TypeToName() const { return nullptr; }

void Node::NameType(Node&) {}

void Node::Number(NodeList& order) {
  serial = lastSerial = static_cast<std::uint32_t>(order.size());
  order.push_back(this);
}

bool Node::declares(std::string_view) const { return false; }

void Node::EvaluateTypes(NodeList& deps) {
  ResolveTypes(deps);
  for (const Use& use : uses) {
    if (use.isDependency) deps.push_back(use.used);
  }
}

void Node::Report(Message message) const { Report(message, {ScopedName("::")}); }

void Node::Report(Message message, std::initializer_list<std::string_view> pieces) const {
  mdktoidl::Report(message, Blamed(), pieces);
}

void Node::Report(Message message, std::initializer_list<std::string_view> pieces,
                  const Node& other, std::string_view there) const {
  Diagnostic diagnostic{message, Blamed(), {pieces.begin(), pieces.end()}, {}};
  if (other.Blamed() != nullptr) {
    diagnostic.related.push_back({other.Blamed(), std::string(there)});
  }
  mdktoidl::Report(std::move(diagnostic));
}

std::string Node::Described() const {
  return std::string(Kind().word) + ' ' + OneLine(ScopedName("::"));
}

// Whose places want something else says so itself.
Expectation Node::Expects(UseRole role) const {
  switch (role) {
    case UseRole::type:
    case UseRole::element:
      return {meanings::type, "type"};
    case UseRole::supports:
      return {meanings::interface, "interface"};
    case UseRole::raises:
      return {meanings::exception, "exception"};
    case UseRole::manages:
    case UseRole::implements:
      return {meanings::component, "component"};
    case UseRole::primaryKey:
      return {meanings::value | meanings::event, "value type"};
    case UseRole::provides:
      return {meanings::facet, "facet"};
    default:
      return {};
  }
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

namespace {

/// The numbers in a text, as they are written there.
std::vector<std::string> NumbersIn(std::string_view text) {
  std::vector<std::string> numbers;
  constexpr std::string_view separators = "<>[], ";
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find_first_of(separators));
    if (IntegerLiteral(std::string(word))) numbers.emplace_back(word);
    text.remove_prefix(std::min(word.size() + 1, text.size()));
  }
  return numbers;
}

constexpr long greatestSize = 0xFFFFFFFFL;

}  // namespace

void Node::CheckSizes(const TypeReference& reference) const {
  if (reference.predefined == "native") Report(Message::typeIsNative, {Described()});
  if (!reference.isAnonymous) return;
  std::string sizes = reference.bounded + ' ' + reference.declaratorSuffix;
  for (const SequenceLevel& level : reference.sequences) sizes += ' ' + level.bound;
  const std::vector<std::string> numbers = NumbersIn(sizes);
  for (const std::string& number : numbers) {
    if (IntegerLiteral(number) > greatestSize) {
      Report(Message::boundTooLarge, {Described(), number});
    }
  }
  if (!reference.bounded.starts_with("fixed")) return;
  constexpr long mostDigits = 31;
  const auto digits = IntegerLiteral(numbers[0]);
  if (digits > mostDigits || IntegerLiteral(numbers[1]) > digits) {
    Report(Message::fixedHasWrongDigits, {Described(), reference.bounded});
  }
}

void Node::UseType(TypeReference&& reference, WrittenType& type, UseRole role) {
  CheckSizes(reference);
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

// The first name that the type had becomes that of the definition. What it had further, a bound, is
// an entry that isn't written.
void Node::WriteTypeAs(Node& definition, WrittenType& type) {
  Use* named = nullptr;
  for (Use& use : uses) {
    if (!type.Writes(use)) continue;
    use.used = &definition;
    use.name = nullptr;
    use.role = UseRole::type;
    use.isInScope = isInside(definition.NameScope());
    use.isDependency = named == nullptr;
    use.spelling = named == nullptr ? SpellingInTemplate(definition) : Spelling::none;
    if (named == nullptr) named = &use;
  }
  if (named == nullptr) {
    named = &AddUse(definition, UseRole::type, SpellingInTemplate(definition));
  }
  type.SetNamed(*named);
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
  if (WriteComments(element, out)) {
    TellObserver({Message::commentRepaired, element, {Described()}});
  }
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
