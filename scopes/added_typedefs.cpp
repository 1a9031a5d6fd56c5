#include "scopes/added_typedefs.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "options/options.h"
#include "scopes/declarations.h"
#include "scopes/look_up.h"
#include "scopes/taken_names.h"
#include "scopes/type_names.h"
#include "tree/type_definitions.h"
#include "types/identifier.h"

namespace mdktoidl {
namespace {

/// A type that needs a name, as a number.
using TypeNumber = std::uint32_t;

/// A type in a scope.
struct Place {
  TypeNumber type;
  const Node* scope;
  friend bool operator==(const Place&, const Place&) = default;
};

struct PlaceHash {
  std::size_t operator()(const Place& place) const {
    return std::hash<const Node*>()(place.scope) * 31 + place.type;
  }
};

/// Users that get one typedef.
struct Group {
  std::vector<Node*> users;    // by creation
  const Node* home = nullptr;  // the scope that gets it; null for the file's
  bool isNested = false;       // home is no module: it holds what the type consists of
  std::string structure;
  std::string name;
  Node* added = nullptr;

  const WrittenType& Type() const { return *users.front()->TypeToName(); }
};

bool NeedsName(const Node& node) {
  const WrittenType* type = node.TypeToName();
  if (type == nullptr || !type->NeedsName() || !node.isDeclared()) return false;
  // What isn't known was told of.
  return type->Definition() != nullptr || !type->Predefined().empty();
}

const Node* ModuleAround(const Node& node) {
  const Node* each = node.Enclosing();
  while (each != nullptr && !each->isModule()) each = each->Enclosing();
  return each;
}

class TypeNamer {
 public:
  explicit TypeNamer(Root& root) : root_(root), names_(root), table_(root, names_) {}

  void Name(const std::vector<Node*>& users) {
    for (Node* user : users) numbers_.try_emplace(StructureOf(*user->TypeToName()), Next());
    FindDefinitions();
    for (Node* user : users) Treat(*user);
    if (groups_.empty()) return;
    ChooseNames();
    Add();
  }

 private:
  /// The innermost interface, or the like, that a declaration stands in; null for one in a module.
  const Node* NestedIn(const Node* declaration) const {
    if (declaration == nullptr) return nullptr;
    const Node* each = declaration->Enclosing();
    while (each != nullptr && root_.Nodes()[each->Serial()]->AsOrderedScope() == nullptr) {
      each = each->Enclosing();
    }
    return each == nullptr || each->isModule() ? nullptr : each;
  }

  /// The interface in which a definition of the user's type must stand: one that holds both the
  /// user and what the type consists of needs the definition and is needed by it. Else that of the
  /// element, unless it would come to need more than it does. Null for none.
  const Node* InterfaceOf(const Node& user) const {
    const WrittenType& type = *user.TypeToName();
    const Node* ofElement = NestedIn(type.Definition());
    const Node* bound = type.BoundConstant();
    const Node* ofBound = NestedIn(bound);
    if (ofBound != nullptr && ofBound->Encloses(user)) return ofBound;
    if (ofElement == nullptr || ofElement->Encloses(user) || bound == nullptr) return ofElement;
    return isAround(*bound, *ofElement) ? ofElement : nullptr;
  }

  /// Whether a declaration stands in an interface, or in a scope around it and in the same file.
  static bool isAround(const Node& declaration, const Node& interface) {
    if (interface.Encloses(declaration)) return true;
    const Node* scope = declaration.Enclosing();
    if (scope != nullptr && !scope->Encloses(interface)) return false;
    return options.Mapping() == ONE_FILE || scope == ModuleAround(interface);
  }

  TypeNumber Next() const { return static_cast<TypeNumber>(numbers_.size()); }

  /// The model's own definitions of such types: of several in one scope the first.
  void FindDefinitions() {
    for (Node* node : root_.Nodes()) {
      const WrittenType* type = node->DefinedType();
      if (type == nullptr || !type->NeedsName() || !node->isDeclared()) continue;
      const auto number = numbers_.find(StructureOf(*type));
      if (number == numbers_.end()) continue;
      definitions_.try_emplace({number->second, table_.ScopeOf(node->Enclosing())}, node);
    }
  }

  Node* DefinitionIn(TypeNumber type, const Node* scope) const {
    const auto found = definitions_.find({type, table_.ScopeOf(scope)});
    return found == definitions_.end() ? nullptr : found->second;
  }

  // Outside the interface that holds both the user and what the type consists of a definition would
  // need that interface, which needs it. In another file it may need this one.
  Node* FindDefinition(const Node& user, TypeNumber type, const Node* interface) const {
    for (const Node* scope = user.Enclosing();; scope = scope->Enclosing()) {
      if (Node* found = DefinitionIn(type, scope)) return found;
      if (scope == nullptr) break;
      if (scope == interface) return nullptr;
      if (scope->isModule() && options.Mapping() != ONE_FILE) break;
    }
    return interface == nullptr ? nullptr : DefinitionIn(type, interface);
  }

  void Treat(Node& user) {
    const std::string structure = StructureOf(*user.TypeToName());
    const TypeNumber type = numbers_.at(structure);
    const Node* interface = InterfaceOf(user);
    if (Node* found = FindDefinition(user, type, interface)) {
      user.NameType(*found);
      return user.Report(Message::typeNamed, {Describe(user), WrittenScopedName(*found)});
    }
    const Node* module = table_.ScopeOf(ModuleAround(user));
    const Node* region = interface == nullptr ? RegionOf(module) : interface;
    const auto [entry, isNew] = groupNumbers_.try_emplace({type, region}, groups_.size());
    if (isNew) {
      groups_.emplace_back();
      groups_.back().structure = structure;
      groups_.back().isNested = interface != nullptr;
      groups_.back().home = interface == nullptr ? module : interface;
    }
    Group& group = groups_[entry->second];
    group.users.push_back(&user);
    if (!group.isNested) group.home = Common(group.home, module);
  }

  /// The module in which users share a typedef: the outermost, or that of the file.
  const Node* RegionOf(const Node* module) const {
    if (module == nullptr || options.Mapping() != ONE_FILE) return module;
    return table_.ScopeOf(&Outermost(*module));
  }

  const Node* Around(const Node* module) const { return table_.ScopeOf(module->Enclosing()); }

  int DepthOf(const Node* module) const {
    int depth = 0;
    for (; module != nullptr; module = Around(module)) ++depth;
    return depth;
  }

  /// The innermost scope that holds both.
  const Node* Common(const Node* left, const Node* right) const {
    if (left == right) return left;
    int leftDepth = DepthOf(left);
    int rightDepth = DepthOf(right);
    for (; leftDepth > rightDepth; --leftDepth) left = Around(left);
    for (; rightDepth > leftDepth; --rightDepth) right = Around(right);
    for (; left != right; right = Around(right)) left = Around(left);
    return left;
  }

  /// The scopes in which a declaration would hide that of a group from a user.
  ScopeSet ScopesBetween(const Group& group) {
    ScopeSet scopes = {group.home};
    std::vector<const Node*> queue = {group.home};
    const auto add = [&](const Node* scope) {
      if (scopes.insert(scope).second) queue.push_back(scope);
    };
    for (const Node* user : group.users) {
      // From outside an interface what is in it is named by its scope.
      if (group.isNested && !group.home->Encloses(*user)) continue;
      const Node* scope = table_.ScopeOf(NameScopeOf(*user));
      for (; scope != group.home; scope = table_.ScopeOf(NameScopeOf(*scope))) add(scope);
    }
    for (std::size_t i = 0; i < queue.size() && stepsLeft_ != 0; ++i) {
      if (queue[i] == nullptr || queue[i]->Kind().inheritance != Inheritance::inherits) continue;
      for (const Use& use : queue[i]->Used()) {
        if (!isBase(use.role) || stepsLeft_ == 0) continue;
        --stepsLeft_;
        add(use.used);
      }
    }
    return scopes;
  }

  /// The groups by what their types consist of, so that who uses them first decides nothing.
  std::vector<Group*> InOrder() {
    std::vector<Group*> order;
    for (Group& group : groups_) order.push_back(&group);
    const auto key = [](const Group* group) {
      const Node* element = group->Type().Definition();
      const Node* bound = group->Type().BoundConstant();
      return std::tuple(element == nullptr ? 0 : element->Serial(),
                        bound == nullptr ? 0 : bound->Serial(), std::string_view(group->structure));
    };
    std::ranges::stable_sort(order, {}, key);
    return order;
  }

  void ChooseNames() {
    const std::vector<Group*> order = InOrder();
    std::vector<ScopeSet> around;
    ScopeSet scopes;
    ScopeSet homes;
    for (const Group* group : order) {
      homes.insert(group->home);
      around.push_back(ScopesBetween(*group));
      scopes.insert(around.back().begin(), around.back().end());
      Enter(*group);
    }
    TakenNames taken(root_, table_, scopes, homes);
    for (std::size_t i = 0; i < order.size(); ++i) {
      Group& group = *order[i];
      group.name = taken.FreeName(WantedName(group), group.home, around[i]);
      taken.Declare(group.name, group.home);
    }
  }

  /// What elements of one simple name there are in one scope, for sequences of one kind.
  static std::string PlainName(const Group& group) {
    return std::to_string(group.home == nullptr ? 0 : group.home->Serial() + 1) + ' ' +
           Folded(CoreNameOf(group.Type())) + ' ' + TemplatesNameOf(group.Type());
  }

  void Enter(const Group& group) {
    const Node* element = group.Type().Definition();
    const auto [entry, isNew] = elements_.try_emplace(PlainName(group), element, false);
    if (!isNew && entry->second.first != element) entry->second.second = true;
  }

  /// With the name of the element's module before it, where several have that name.
  std::string WantedName(const Group& group) const {
    const WrittenType& type = group.Type();
    std::string name = CoreNameOf(type) + TemplatesNameOf(type);
    if (!elements_.at(PlainName(group)).second || type.Definition() == nullptr) return name;
    const Node* module = ModuleAround(*type.Definition());
    return module == nullptr ? name : std::string(module->Name()) + name;
  }

  /// Of a module that is opened several times the opening where the first user stands.
  OrderedScope* OpeningFor(const Group& group) const {
    if (group.home == nullptr) return &root_;
    const Node* each = group.isNested ? group.home : group.users.front()->Enclosing();
    while (table_.ScopeOf(each) != group.home) each = each->Enclosing();
    return root_.Nodes()[each->Serial()]->AsOrderedScope();
  }

  /// Of what the type consists of, what stands last in a scope.
  static const Node* LastPartIn(const OrderedScope& scope, const WrittenType& type) {
    const Node* last = nullptr;
    for (const Node* part : {type.Definition(), type.BoundConstant()}) {
      if (part == nullptr || !scope.Encloses(*part)) continue;
      if (last == nullptr || last->Serial() < part->Serial()) last = part;
    }
    return last;
  }

  void Make(Group& group) {
    OrderedScope* scope = OpeningFor(group);
    Container* parent = scope == &root_ ? nullptr : scope;
    const Node& first = *group.users.front();
    auto node = std::make_unique<AddedTypedef>(group.name, parent, first, group.Type());
    group.added = node.get();
    OrderedScope::Insertion insertion{std::move(node), {}, LastPartIn(*scope, group.Type())};
    for (const Node* user : group.users) {
      if (scope->Encloses(*user)) insertion.users.push_back(user);
    }
    if (!insertions_.contains(scope)) changed_.push_back(scope);
    insertions_[scope].push_back(std::move(insertion));
  }

  // Those for one place stand in the order of their first users.
  void Add() {
    for (Group& group : groups_) Make(group);
    for (OrderedScope* scope : changed_) scope->Insert(std::move(insertions_[scope]));
    root_.NumberAnew();
    for (const Group& group : groups_) {
      const Node& first = *group.users.front();
      first.Report(Message::typedefAdded, {Describe(first), WrittenScopedName(*group.added)});
      for (Node* user : group.users) user->NameType(*group.added);
    }
  }

  Root& root_;
  DeclaredNames names_;
  ScopeTable table_;
  std::unordered_map<std::string, TypeNumber> numbers_;  // by structure
  std::unordered_map<Place, Node*, PlaceHash> definitions_;
  std::unordered_map<Place, std::size_t, PlaceHash> groupNumbers_;  // by region
  std::vector<Group> groups_;                                       // by the first user
  // The element of each plain name, and whether there are others.
  std::unordered_map<std::string, std::pair<const Node*, bool>> elements_;
  std::unordered_map<OrderedScope*, std::vector<OrderedScope::Insertion>> insertions_;
  std::vector<OrderedScope*> changed_;
  // Bases may be many and shared by many: what is looked through for them has a limit. A name that
  // an unseen one has is told of by the checks of names.
  std::size_t stepsLeft_ = 64 * root_.Nodes().size();
};

}  // namespace

void NameTypes(Root& root) {
  std::vector<Node*> users;
  for (Node* node : root.Nodes()) {
    if (NeedsName(*node)) users.push_back(node);
  }
  if (!users.empty()) TypeNamer(root).Name(users);
}

}  // namespace mdktoidl
