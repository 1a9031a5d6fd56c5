#include "tree/added_names.h"

#include <algorithm>
#include <optional>

#include "tree/data_types.h"
#include "types/identifier.h"
#include "types/text.h"

namespace mdktoidl {

namespace {

constexpr std::size_t stepsPerDeclaration = 64;

/// Calls `visit` with each node directly inside another.
template <typename Visit>
void ForEachInside(const Root& root, const Node& scope, Visit visit) {
  for (std::uint32_t at = scope.Serial() + 1; at <= scope.LastSerial();) {
    const Node& child = *root.Nodes()[at];
    visit(child);
    at = child.LastSerial() + 1;
  }
}

/// Calls `visit` with the root and each module, the outer ones first.
template <typename Visit>
void ForEachModule(const Root& root, Visit visit) {
  std::vector<const Node*> modules = {&root};
  for (std::size_t i = 0; i < modules.size(); ++i) {
    const Node& module = *modules[i];
    visit(module);
    ForEachInside(root, module, [&](const Node& child) {
      if (child.isModule()) modules.push_back(&child);
    });
  }
}

const Node& ScopeAround(const Node& node) {
  return node.Enclosing() == nullptr ? *root : *node.Enclosing();
}

/// What CORBA's own module calls predefined types in the names of its sequences.
const std::unordered_map<std::string_view, std::string_view> predefinedNames = {
    {"boolean", "Boolean"},
    {"char", "Char"},
    {"wchar", "WChar"},
    {"octet", "Octet"},
    {"short", "Short"},
    {"unsigned short", "UShort"},
    {"long", "Long"},
    {"unsigned long", "ULong"},
    {"long long", "LongLong"},
    {"unsigned long long", "ULongLong"},
    {"float", "Float"},
    {"double", "Double"},
    {"long double", "LongDouble"},
    {"string", "String"},
    {"wstring", "WString"},
    {"any", "Any"},
    {"Object", "Object"},
    {"CORBA::TypeCode", "TypeCode"},
    {"native", "Native"},
    {"fixed", "Fixed"},
};

/// "long", "string<8>" or "fixed<9, 2>": the parameters stand behind the name.
std::string PredefinedName(std::string_view predefined) {
  const std::size_t end = std::min(predefined.find('<'), predefined.size());
  const auto found = predefinedNames.find(predefined.substr(0, end));
  std::string name(found == predefinedNames.end() ? predefined.substr(0, end) : found->second);
  std::string_view rest = predefined.substr(std::min(end + 1, predefined.size()));
  for (std::string_view separator; !rest.empty(); separator = "_") {
    const std::size_t size = std::min(rest.find_first_of(",>"), rest.size());
    name.append(separator).append(PlainNumber(rest.substr(0, size)));
    rest.remove_prefix(std::min(rest.find_first_not_of(",> ", size), rest.size()));
  }
  return name;
}

/// A declaration's name as a part of another name. What is no identifier is told of elsewhere.
std::string Part(const Node& declaration) {
  std::string part(Unescaped(declaration.WrittenName()));
  const auto isOdd = [](char character) { return !IsIdentifier(std::string("a") + character); };
  std::ranges::replace_if(part, isOdd, '_');
  return IsIdentifier(part) ? part : "T" + part;
}

std::string ElementName(const Node& element, const Node& scope, const SharedNames& shared) {
  std::string name = Part(element);
  const Node* module = Module::GetFileNode(&element);
  const bool isForeign = &ScopeAround(element) != &scope;
  if (isForeign && module->isModule() && shared.Has(element)) name.insert(0, Part(*module));
  return name;
}

/// "3" for "[3]", "2x3" for "[2][3]".
std::string Dimensions(std::string_view suffix) {
  std::string dimensions;
  while (!suffix.empty()) {
    const std::size_t end = suffix.find(']');
    if (!dimensions.empty()) dimensions += 'x';
    dimensions += PlainNumber(suffix.substr(1, end - 1));
    suffix.remove_prefix(end + 1);
  }
  return dimensions;
}

}  // namespace

std::string PlainNumber(std::string_view text) {
  const std::optional<long> value = IntegerLiteral(std::string(text));
  return value ? std::to_string(*value) : std::string(text);
}

SharedNames::SharedNames(const Root& root) {
  ForEachModule(root, [&](const Node& module) {
    ForEachInside(root, module, [&](const Node& child) {
      if (child.isModule() || child.declaresConstant()) return;
      const std::uint32_t hash = root.NameHashes()[child.Serial()];
      const auto first = scopes_.emplace(hash, module.Serial()).first;
      if (first->second != module.Serial()) shared_.insert(hash);
    });
  });
}

bool SharedNames::Has(const Node& declaration) const {
  return shared_.contains(HashOfName(declaration.WrittenName()));
}

std::string TypedefName(const WrittenType& type, const Node& scope, const SharedNames& shared) {
  const Node* element = type.Definition();
  std::string name =
      element == nullptr ? PredefinedName(type.Predefined()) : ElementName(*element, scope, shared);
  const auto sequences = type.Sequences();
  for (std::size_t level = sequences.size(); level-- > 0;) {
    name.append("Seq").append(PlainNumber(sequences[level].bound));
  }
  if (const Node* bound = type.BoundConstant()) name.append("_").append(Part(*bound));
  const std::string_view suffix = type.DeclaratorSuffix();
  return suffix.empty() ? name : name + "Array" + Dimensions(suffix);
}

TakenNames::TakenNames(const Root& root)
    : root_(root),
      entered_(root.Nodes().size()),
      stepsLeft_(stepsPerDeclaration * root.Nodes().size()) {
  FindOpenings();
}

// Modules of one name in one scope are one scope.
void TakenNames::FindOpenings() {
  std::unordered_map<std::uint64_t, const Node*> modules;
  ForEachModule(root_, [&](const Node& module) {
    if (&module == &root_) return;
    const Node& around = FirstOpening(ScopeAround(module));
    const std::uint64_t key = KeyOf(root_.NameHashes()[module.Serial()], around);
    const Node* first = modules.emplace(key, &module).first->second;
    if (first == &module) return;
    firstOpenings_.emplace(&module, first);
    openings_[first].push_back(&module);
  });
}

const Node& TakenNames::FirstOpening(const Node& scope) const {
  const auto found = firstOpenings_.find(&scope);
  return found == firstOpenings_.end() ? scope : *found->second;
}

void TakenNames::Enter(const Node& scope) {
  if (entered_[scope.Serial()]) return;
  entered_[scope.Serial()] = true;
  EnterMembers(scope, scope);
  const auto further = openings_.find(&scope);
  if (further == openings_.end()) return;
  for (const Node* opening : further->second) EnterMembers(*opening, scope);
}

void TakenNames::EnterMembers(const Node& scope, const Node& first) {
  const auto enter = [&](const Node& member) {
    declared_.insert(KeyOf(root_.NameHashes()[member.Serial()], first));
  };
  ForEachInside(root_, scope, [&](const Node& member) {
    enter(member);
    if (member.AsEnumeration() != nullptr) ForEachInside(root_, member, enter);
  });
}

bool TakenNames::IsDeclared(std::uint32_t hash, const Node& scope) {
  const Node& first = FirstOpening(scope);
  Enter(first);
  return declared_.contains(KeyOf(hash, first));
}

/// The scopes and all that they inherit from, each once. Gives up where so much inherits so widely
/// that it would take longer than all the rest; what clashes then is told of as any clash.
std::vector<const Node*> TakenNames::WithBases(const std::vector<const Node*>& scopes) {
  std::vector<const Node*> all = scopes;
  std::unordered_set<const Node*> passed(scopes.begin(), scopes.end());
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (all[i]->Kind().heredity != Inheritance::inherits) continue;
    for (const Use& use : all[i]->Used()) {
      if (use.role != UseRole::base && use.role != UseRole::supports) continue;
      if (stepsLeft_ == 0) return all;
      --stepsLeft_;
      if (passed.insert(use.used).second) all.push_back(use.used);
    }
  }
  return all;
}

// A name that is declared further out is not taken either, though it could be: it would mean
// something else here than around.
std::string TakenNames::Take(const std::string& wanted, const Node& scope,
                             const std::vector<const Node*>& around) {
  const std::vector<const Node*> looked = WithBases(around);
  std::string name = wanted;
  std::uint32_t hash = HashOfName(name);
  const auto isTaken = [&] {
    return used_.contains(KeyOf(hash, FirstOpening(scope))) ||
           std::ranges::any_of(looked, [&](const Node* each) { return IsDeclared(hash, *each); });
  };
  for (int number = 2; isTaken(); ++number) {
    name = wanted + "_" + std::to_string(number);
    hash = HashOfName(name);
  }
  declared_.insert(KeyOf(hash, FirstOpening(scope)));
  for (const Node* each : around) {
    if (each != &scope && scope.Encloses(*each)) used_.insert(KeyOf(hash, FirstOpening(*each)));
  }
  return name;
}

}  // namespace mdktoidl
