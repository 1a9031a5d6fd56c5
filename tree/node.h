// One IDL declaration: what every construct has in common.
//
// A node is built from a model element, together with all nodes inside it; then its types are
// evaluated, once for the whole tree; then it is written. Constructs differ by what they override.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "agent/messages.h"
#include "output/layout.h"
#include "tree/construct.h"
#include "tree/definition.h"
#include "tree/meaning.h"
#include "tree/use.h"
#include "tree/written_type.h"
#include "types/type_reference.h"

namespace mdktoidl {

class Constant;
class ConstantNames;
class Container;
class Enumeration;
class Interface;
class Value;
class OrderedScope;

/// Borrowed nodes. Kept sorted by creation where a list serves as a set.
using NodeList = std::vector<Node*>;

/// What a declaration is merely another name of.
struct Alias {
  const Node* declaration = nullptr;  ///< null for a predefined type, and for a template
  std::string primitive;              ///< the predefined type; empty for anything else
  /// The type definition that names a template; null for anything else.
  const Node* definition = nullptr;
};

class Node : public Definition {
 public:
  /// Nodes lie in memory of the run, which is given back as a whole.
  static void* operator new(std::size_t size);
  static void operator delete(void*) {}

  /// Resolves the types that this declaration uses, checks its rules, enters what it uses, and
  /// appends to `deps` every node outside it that it or anything inside it depends on.
  void EvaluateTypes(NodeList& deps);

  /// Writes the declaration.
  virtual void Unparse(Writer& out) const = 0;
  /// Writes the forward declaration; nothing for a construct that has none.
  virtual void UnparseForward(Writer& out) const;

  /// The facts about its construct.
  virtual const Construct& Kind() const = 0;
  /// Whether it is part of the IDL, as far as that is known. What is not is told of nevertheless,
  /// and may be used by others.
  virtual bool isDeclared() const { return true; }

  /// Whether this is a constant, which may bound a sequence.
  virtual bool declaresConstant() const { return false; }
  /// What this is another name of; nothing for all but type definitions. Read from the model, so
  /// it may be asked before types are evaluated.
  virtual std::optional<Alias> AliasOf() const { return std::nullopt; }
  /// Shortens the way for the next question: what `AliasOf` leads to in the end.
  virtual void RememberAlias(const Alias&) const {}
  /// The use of what this is another name of, or a name for sequences of; null for all else, arrays
  /// included. Known when types are evaluated.
  const Use* NamedType() const;
  /// The scope that this is, of those that order their declarations; null for anything else.
  virtual OrderedScope* AsOrderedScope() { return nullptr; }
  const OrderedScope* AsOrderedScope() const { return const_cast<Node*>(this)->AsOrderedScope(); }
  /// The enumeration that this is; null for anything else.
  virtual const Enumeration* AsEnumeration() const { return nullptr; }
  virtual bool isEnumerator() const { return false; }
  /// The constant, the interface, the value or event type that this is; null for anything else.
  virtual const Constant* AsConstant() const { return nullptr; }
  virtual const Interface* AsInterface() const { return nullptr; }
  virtual const Value* AsValue() const { return nullptr; }
  /// The type that this is a name for, be it a sequence's; null for all but type definitions.
  virtual const WrittenType* DefinedType() const { return nullptr; }
  /// Its type, where IDL takes no templates without a name; null where it takes them, and for what
  /// has no type.
  virtual const WrittenType* TypeToName() const;
  /// Has that type written as the name of a declaration that means the same. Its spelling is found
  /// out, which takes knowing all declarations around.
  virtual void NameType(Node& definition);
  /// Whether this is a module; it may have a file of its own.
  virtual bool isModule() const { return false; }
  /// Writes what begins and ends an opening of a module; nothing for anything else.
  virtual void UnparseOpening(bool, Writer&) const {}
  virtual void UnparseClosing(Writer&) const {}
  /// Whether this is a scope that orders its declarations, and one of that name stands in it, which
  /// hides declarations of the same name around it.
  virtual bool declares(std::string_view name) const;

  /// What a name that means it may stand for.
  virtual Meanings Means() const { return 0; }
  /// What a name that it writes in a role has to stand for.
  virtual Expectation Expects(UseRole role) const;
  /// The type that this is another name of; null for what is none. Known once it is evaluated.
  virtual const WrittenType* Denotes() const { return nullptr; }
  /// The type that this gives its own type to, as a field does to its struct; null for none.
  virtual const Node* TypeThatHoldsMine() const { return nullptr; }

  /// Makes legal what compilers would refuse, where that can be done in the declaration itself, and
  /// tells of it. Not called where the plain form is wanted.
  virtual void Repair(const ConstantNames&) {}
  /// Reports what no compiler takes, and nothing can be written for.
  virtual void CheckLegality(const ConstantNames&) const {}

  /// The element that diagnostics about it are about: its own, where it has one.
  virtual mdk::IMdeEntity* Blamed() const { return Entity(); }
  /// Reports for this declaration. The only piece is its scoped name, unless others are given.
  void Report(Message message) const;
  void Report(Message message, std::initializer_list<std::string_view> pieces) const;
  /// The same about another declaration as well; `there` says what is to be seen there.
  void Report(Message message, std::initializer_list<std::string_view> pieces, const Node& other,
              std::string_view there) const;
  /// The word for it with its scoped name: "struct M::S".
  std::string Described() const;

  /// The node that was built in this run for `element`; null when there is none, and for null.
  static Node* GetNodeRef(mdk::IMdeEntity* element);

  /// The declaration around it; null at the top of the tree.
  const Node* Enclosing() const { return static_cast<const Node*>(Scope()); }
  /// What it uses by name. Empty until it is evaluated.
  const Uses& Used() const { return uses; }
  Uses& Used() { return uses; }
  /// The place in the order of creation, from 0. What is inside it has places behind its own, up to
  /// its `LastSerial`.
  std::uint32_t Serial() const { return serial; }
  std::uint32_t LastSerial() const { return lastSerial; }
  bool Encloses(const Node& other) const {
    return serial <= other.serial && other.serial <= lastSerial;
  }

 protected:
  /// A node inside `parent`, or at the top of the tree when that is null.
  Node(mdk::IMdeEntity* element, Container* parent);
  /// The same by another name than the element's, which may be null: the model doesn't hold it.
  Node(mdk::IMdeEntity* element, std::string_view name, Container* parent);

  /// Lets `GetNodeRef` find this node by its element.
  void CreateNodeRef();

  /// Resolves the types that this declaration and all inside it use, checks their rules and enters
  /// their uses. Appends to `deps` what those inside depend on outside it.
  virtual void ResolveTypes(NodeList& deps) = 0;

  /// Resolves the type of `typed` as a type of this declaration. `role` is that of a definition
  /// without templates.
  void ResolveType(mdk::IMdeEntity* typed, const TypeDiagnostics& diagnostics, WrittenType& type,
                   UseRole role = UseRole::type);

  // The steps of that, for types that are told of by two or looked up otherwise.
  void LookUpType(mdk::IMdeEntity* typed, std::string_view word, TypeReference& reference) const;
  void ReportMultiplicity(const Multiplicity& multiplicity, std::string_view word) const;
  void ReportArray(const TypeReference& reference, std::string_view word) const;
  void ReportType(const TypeReference& reference, const TypeDiagnostics& diagnostics) const;
  void CheckSizes(const TypeReference& reference) const;
  void UseType(TypeReference&& reference, WrittenType& type, UseRole role = UseRole::type);
  /// Replaces what the type uses by a declaration that means the same.
  void WriteTypeAs(Node& definition, WrittenType& type);

  /// Enters a name that it writes.
  Use& AddUse(Node& used, UseRole role, Spelling spelling);
  /// The same, spelled simply in scope, else by the "::" name.
  Use& AddUse(Node& used, UseRole role) { return AddUse(used, role, SpellingOf(used)); }
  Spelling SpellingOf(const Node& other) const;
  Spelling SpellingInTemplate(const Node& other) const;
  /// Sets the simple name of a use, where the model has another than what is used.
  static void Rename(Use& use, std::string_view name);

  /// What comes before a declaration with a body: an empty line and the comment; the declaration's
  /// own line is begun.
  void UnparseHeading(Writer& out) const;
  void UnparseComment(mdk::IMdeEntity* element, Writer& out) const;

  /// Numbers it, and what is inside it, by their places in a list that they are appended to.
  virtual void Number(NodeList& order);

  Uses uses;

 private:
  friend class Container;
  friend class OrderedScope;

  bool isHiddenHere(const Node& other) const;

  std::uint32_t serial;
  std::uint32_t lastSerial;
  std::uint32_t position = 0;  // among its siblings
};

/// Sorts by creation and removes duplicates.
void SortByCreation(NodeList& nodes);

template <class Owner>
Owner OwnerOf(const Construct& (Owner::*kind)() const);

/// Makes a node of a construct, which has to have a row of its own: the row of a construct that it
/// is derived from says other things. Only a base that is abstract may share its row.
template <class Made, class... Arguments>
std::unique_ptr<Made> MakeNode(Arguments&&... arguments) {
  using Owner = decltype(OwnerOf(&Made::Kind));
  static_assert(std::is_same_v<Owner, Made> || std::is_abstract_v<Owner>);
  return std::make_unique<Made>(std::forward<Arguments>(arguments)...);
}

}  // namespace mdktoidl
