#include "tree/added_typedefs.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "options/options.h"
#include "tree/added_names.h"
#include "types/constant_value.h"

namespace mdktoidl {

void AddedTypedef::Unparse(Writer& out) const {
  newline(out);
  out << "typedef " << type << ' ' << Name() << type.DeclaratorSuffix() << ';';
}

void AddedTypedef::Define(const WrittenType& named) {
  Node* element = named.Definition();
  const Use* elementUse = nullptr;
  if (element != nullptr) {
    elementUse = &AddUse(*element, UseRole::element, SpellingInTemplate(*element));
  }
  Node* bound = named.BoundConstant();
  const Use* boundUse = nullptr;
  if (bound != nullptr) boundUse = &AddUse(*bound, UseRole::bound, SpellingInTemplate(*bound));
  type.SetLike(named, elementUse, boundUse);
}

namespace {

/// Whether a type can be told of by a typedef: what it is made of is known and exported.
bool IsKnown(const WrittenType& type) {
  return type.Definition() != nullptr || !type.Predefined().empty();
}

/// The same text for types that are the same. Constants that bound them are the same by their
/// numbers if `byValue`, or else by what they are.
std::string KeyOf(const WrittenType& type, bool byValue) {
  const Node* element = type.Definition();
  std::string key(element == nullptr ? std::string(type.Predefined())
                                     : '#' + std::to_string(element->Serial()));
  for (std::size_t level = type.Sequences().size(); level-- > 0;) {
    key.append("<").append(PlainNumber(type.Sequences()[level].bound));
  }
  if (const Node* bound = type.BoundConstant()) {
    VisitedConstants visited;
    key += byValue ? std::to_string(EvaluateConstant(bound->Entity(), visited).value)
                   : '#' + std::to_string(bound->Serial());
  }
  return key.append(type.DeclaratorSuffix());
}

/// The pairs of files of which one includes the other, as far as uses tell.
class Includes {
 public:
  explicit Includes(const Root& root) {
    if (options.Mapping() == ONE_FILE) return;
    for (const Use& use : root.AllUses()) pairs_.insert(PairOf(*use.user, *use.used));
  }

  /// Whether the file of `user` holds `used`, or includes the file that does.
  bool Reach(const Node& user, const Node& used) const {
    return options.Mapping() == ONE_FILE ||
           Module::GetFileNode(&user) == Module::GetFileNode(&used) ||
           pairs_.contains(PairOf(user, used));
  }

 private:
  static std::uint64_t PairOf(const Node& user, const Node& used) {
    return std::uint64_t{Module::GetFileNode(&user)->Serial()} << 32 |
           Module::GetFileNode(&used)->Serial();
  }

  std::unordered_set<std::uint64_t> pairs_;
};

/// The typedefs and sequences of the model, by what they mean and where they stand.
class OwnTypedefs {
 public:
  explicit OwnTypedefs(const Root& root) : root_(root), includes_(root) {
    for (Node* node : root.Nodes()) {
      const WrittenType* type = node->DefinedType();
      if (type == nullptr || !type->NeedsName() || !IsKnown(*type)) continue;
      if (node->Enclosing() == nullptr) continue;
      typedefs_.emplace(KeyIn(KeyOf(*type, true), *node->Enclosing()), node);
    }
  }

  /// The one that means the same in the innermost scope around `user` that has one; null when none
  /// has. One that needs what stands beside the user, in the same declaration, is of no use: either
  /// would have to come first.
  Node* Find(const Node& user, const WrittenType& type) const {
    if (typedefs_.empty()) return nullptr;
    const std::string key = KeyOf(type, true);
    const Node* inner = &user;
    for (const Node* scope = user.Enclosing(); scope != nullptr; scope = scope->Enclosing()) {
      const auto found = typedefs_.find(KeyIn(key, *scope));
      if (found != typedefs_.end() && Suits(*found->second, user, *inner)) return found->second;
      inner = scope;
    }
    return nullptr;
  }

 private:
  static std::string KeyIn(const std::string& key, const Node& scope) {
    return key + '@' + std::to_string(scope.Serial());
  }

  bool Suits(const Node& candidate, const Node& user, const Node& sibling) const {
    const WrittenType& type = *candidate.DefinedType();
    return !NeedsFrom(type.Definition(), sibling) && !NeedsFrom(type.BoundConstant(), sibling) &&
           includes_.Reach(user, candidate);
  }

  static bool NeedsFrom(const Node* used, const Node& sibling) {
    if (used == nullptr || !sibling.Encloses(*used)) return false;
    return used != &sibling || used->Kind().forward == Forward::no;
  }

  const Root& root_;
  Includes includes_;
  std::unordered_map<std::string, Node*> typedefs_;
};

/// A typedef that is to be added.
struct Draft {
  const WrittenType* type = nullptr;  // the first user's, until that is named
  std::vector<Node*> users;           // by creation
  std::vector<const Node*> around;    // all scopes around users, each once
  Node* scope = nullptr;              // that it is declared in
  AddedTypedef* made = nullptr;
};

class Naming {
 public:
  explicit Naming(Root& root) : root_(root) {}

  void Run() {
    FindUsers();
    if (users_.empty()) return;
    ChooseTypedefs();
    if (!drafts_.empty()) AddTypedefs();
    for (auto& [user, own] : named_) {
      user->NameType(*own);
      Tell(Message::typeNamed, *user, *own);
    }
  }

 private:
  void FindUsers() {
    for (Node* node : root_.Nodes()) {
      const WrittenType* type = node->TypeToName();
      if (type != nullptr && type->NeedsName() && IsKnown(*type)) users_.push_back(node);
    }
  }

  void ChooseTypedefs() {
    const OwnTypedefs own(root_);
    for (Node* user : users_) {
      const WrittenType& type = *user->TypeToName();
      if (Node* found = own.Find(*user, type)) {
        named_.emplace_back(user, found);
      } else {
        Join(*user, type);
      }
    }
  }

  /// Files can't rely on each other for typedefs: they might include each other then. Only that of
  /// a type inside an interface stands there for all.
  void Join(Node& user, const WrittenType& type) {
    std::string key = KeyOf(type, false);
    if (options.Mapping() != ONE_FILE && ScopeOfNested(type) == nullptr) {
      key += '@' + std::to_string(Module::GetFileNode(&user)->Serial());
    }
    const std::size_t next = drafts_.size();
    const std::size_t number = numbers_.emplace(std::move(key), next).first->second;
    if (number == next) drafts_.emplace_back().type = &type;
    drafts_[number].users.push_back(&user);
  }

  /// The interface or value type in which the type's definition is nested; null for none.
  static const Node* ScopeOfNested(const WrittenType& type) {
    const Node* scope = type.Definition() == nullptr ? nullptr : type.Definition()->Enclosing();
    return scope == nullptr || scope->isModule() ? nullptr : scope;
  }

  void AddTypedefs() {
    SortByType();
    for (Draft& draft : drafts_) Place(draft);
    Insert();
    for (Draft& draft : drafts_) {
      draft.made->Define(*draft.type);
      for (Node* user : draft.users) user->NameType(*draft.made);
      Tell(Message::typedefAdded, *draft.users.front(), *draft.made);
    }
  }

  /// Who uses a type first must not decide about the order of typedefs, nor about their names.
  void SortByType() {
    const auto order = [](const Draft& draft) {
      const Node* element = draft.type->Definition();
      return std::tuple(element == nullptr ? 0 : element->Serial(), KeyOf(*draft.type, false),
                        draft.users.front()->Serial());
    };
    std::vector<std::pair<decltype(order(drafts_.front())), std::size_t>> sorted;
    for (const Draft& draft : drafts_) sorted.emplace_back(order(draft), sorted.size());
    std::ranges::sort(sorted);
    std::vector<Draft> drafts;
    for (const auto& [key, number] : sorted) drafts.push_back(std::move(drafts_[number]));
    drafts_ = std::move(drafts);
  }

  void Place(Draft& draft) {
    std::unordered_set<const Node*> around;
    for (const Node* user : draft.users) NoteScopes(*user, around, draft);
    const Node* scope = ScopeOfNested(*draft.type);
    if (scope == nullptr) {
      scope = ModuleAround(draft.users);
      for (const Node* used : {draft.type->Definition(), draft.type->BoundConstant()}) {
        if (used != nullptr) scope = ScopeBeside(*used, *scope, around);
      }
    }
    draft.scope = root_.Nodes()[scope->Serial()];
    if (around.insert(scope).second) draft.around.push_back(scope);
    NoteScopes(*scope, around, draft);
  }

  void NoteScopes(const Node& node, std::unordered_set<const Node*>& around, Draft& draft) const {
    const Node* scope = &node;
    while (scope != &root_) {
      scope = scope->Enclosing() == nullptr ? &root_ : scope->Enclosing();
      if (!around.insert(scope).second) return;
      draft.around.push_back(scope);
    }
  }

  /// The innermost module around all users, or the root.
  const Node* ModuleAround(const std::vector<Node*>& users) const {
    const Node* module = Module::GetFileNode(users.front());
    for (const Node* user : users) {
      while (!module->Encloses(*user)) module = Module::GetFileNode(module);
    }
    return module;
  }

  /// What is used may stand in a declaration that holds users, too: the typedef must stand there
  /// as well, since that declaration can neither follow nor precede it as a whole. The scope for
  /// that, or else `scope`.
  static const Node* ScopeBeside(const Node& used, const Node& scope,
                                 const std::unordered_set<const Node*>& around) {
    const bool isScope = used.Kind().forward == Forward::no;
    const Node* each = isScope ? &used : used.Enclosing();
    for (; each != nullptr && each != &scope && scope.Encloses(*each); each = each->Enclosing()) {
      if (around.contains(each)) return each;
    }
    return &scope;
  }

  void Insert() {
    const SharedNames shared(root_);
    TakenNames taken(root_);
    std::unordered_map<Node*, std::vector<OrderedScope::Insertion>> insertions;
    std::vector<Node*> scopes;
    for (Draft& draft : drafts_) {
      const std::string name =
          taken.Take(TypedefName(*draft.type, *draft.scope, shared), *draft.scope, draft.around);
      auto& inScope = insertions[draft.scope];
      if (inScope.empty()) scopes.push_back(draft.scope);
      inScope.push_back(Make(draft, name));
    }
    for (Node* scope : scopes) scope->AsOrderedScope()->Insert(std::move(insertions[scope]));
    root_.NumberAnew();
  }

  OrderedScope::Insertion Make(Draft& draft, const std::string& name) const {
    Container* parent = draft.scope == &root_ ? nullptr : draft.scope->AsOrderedScope();
    auto made = MakeNode<AddedTypedef>(draft.users.front()->Entity(), name, parent);
    draft.made = made.get();
    OrderedScope::Insertion insertion{std::move(made), {}, draft.type->Definition()};
    for (const Node* user : draft.users) {
      if (draft.scope->Encloses(*user)) insertion.users.push_back(user);
    }
    return insertion;
  }

  static void Tell(Message message, const Node& user, const Node& definition) {
    const std::string described = std::string(user.Kind().word) + " " + user.ScopedName("::");
    user.Report(message, {described, definition.ScopedName("::")});
  }

  Root& root_;
  std::vector<Node*> users_;  // by creation
  std::vector<std::pair<Node*, Node*>> named_;
  std::vector<Draft> drafts_;
  std::unordered_map<std::string, std::size_t> numbers_;  // of drafts, by the keys of their types
};

}  // namespace

void NameTypes(Root& root) { Naming(root).Run(); }

}  // namespace mdktoidl
