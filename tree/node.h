// One IDL declaration: what every construct has in common.
//
// A node is built from a model element, together with all nodes inside it; then its types are
// evaluated, once for the whole tree; then it is written. Constructs differ by what they override.
#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "agent/messages.h"
#include "tree/definition.h"
#include "tree/rare_text.h"
#include "types/type_kind.h"
#include "types/type_reference.h"

namespace mdktoidl {

class Container;
class Enumeration;
class Node;

/// Borrowed nodes. Kept sorted by creation where a list serves as a set.
using NodeList = std::vector<Node*>;

/// What a construct says about its type, by what is wrong with it.
struct TypeComplaints {
  std::string_view word;                ///< the construct word
  std::optional<Message> boundUnknown;  ///< nothing when another construct says so
  Message typeUnknown;
  std::optional<Message> typeAnonymous;  ///< nothing where templates are welcome
  Message typeNotExported;
};

/// What a declaration is merely another name of.
struct Alias {
  const Node* declaration = nullptr;  ///< null for a predefined type, and for a template
  std::string primitive;              ///< the predefined type; empty for anything else
};

class Node : public Definition {
 public:
  /// Nodes lie in memory of the run, which is given back as a whole.
  static void* operator new(std::size_t size);
  static void operator delete(void*) {}

  /// Resolves the types that this declaration uses, checks its rules, and appends to `deps` every
  /// node outside it that it refers to.
  virtual void EvaluateTypes(NodeList& deps) = 0;

  /// Writes the declaration.
  virtual void Unparse(std::ofstream& out) = 0;

  /// Appends `from` to `to`.
  static void JoinList(const NodeList& from, NodeList& to);

  /// Takes out of `deps` what is declared inside `locals`, at any depth, and appends to `out` the
  /// children of `locals` that are or enclose it, each once, in their order. `deps` is left sorted
  /// by creation and without duplicates. A child that encloses this node and what it refers to is
  /// not its own dependency. Costs what sorting `deps` costs, however many children there are.
  void MoveLocalDeclarations(const Container& locals, NodeList& deps, NodeList& out) const;

  /// The same with this node's own dependencies as `out`.
  void MoveLocalDeclarations(const Container& locals, NodeList& deps);

  /// Whether IDL has a forward declaration for this construct.
  virtual bool hasForward() const { return false; }
  /// Writes the forward declaration; nothing for a construct that has none.
  virtual void UnparseForward(std::ofstream& out) const;

  /// Whether this is a constant, which may bound a sequence.
  virtual bool declaresConstant() const { return false; }
  /// What this is another name of; nothing for all but type definitions. Read from the model, so
  /// it may be asked before types are evaluated.
  virtual std::optional<Alias> AliasOf() const { return std::nullopt; }
  /// Shortens the way for the next question: what `AliasOf` leads to in the end.
  virtual void RememberAlias(const Alias&) const {}
  /// The enumeration that this is; null for anything else.
  virtual const Enumeration* AsEnumeration() const { return nullptr; }
  /// Whether this is a scope in which a declaration of that name stands, which hides declarations
  /// of the same name around it.
  virtual bool declares(const std::string& name) const;
  /// Whether this is a module; it may have a file of its own.
  virtual bool isModule() const { return false; }

  /// The node that was built in this run for `element`; null when there is none, and for null.
  static Node* GetNodeRef(mdk::IMdeEntity* element);

  /// The name of a declaration as it is written here: simple in scope, else the "::" name.
  std::string NameHere(const Node& other) const;

  /// The siblings that must be declared before this one. Filled by its container.
  const NodeList& Dependencies() const { return dependencies; }
  /// The place in the order of creation. A container's nodes have places behind its own, up to its
  /// `LastSerial`.
  std::uint32_t Serial() const { return serial; }
  std::uint32_t LastSerial() const { return lastSerial; }
  /// The place among its siblings, from 0.
  std::uint32_t Position() const { return position; }

 protected:
  /// A node inside `parent`, or at the top of the tree when that is null.
  Node(mdk::IMdeEntity* element, Container* parent);

  /// Lets `GetNodeRef` find this node by its element.
  void CreateNodeRef();

  /// Resolves the type of `typed` as the type of this declaration.
  void ResolveType(mdk::IMdeEntity* typed, const TypeComplaints& complaints, NodeList& deps);
  /// Makes a type that has been looked up the type of this declaration.
  void UseType(TypeReference&& reference, const TypeComplaints& complaints, NodeList& deps);

  /// The type as it is written here.
  std::string_view TypeText() const { return auxText.empty() ? typeName : auxText.Text(); }
  /// What is written behind the declared name; "[2][3]" for an array.
  std::string_view DeclaratorSuffix() const { return elementName.Text(); }

  void UnparseComment(mdk::IMdeEntity* element, std::ofstream& out) const;
  /// What comes before a declaration with a body: an empty line and the comment; the declaration's
  /// own line is begun.
  void UnparseHeading(std::ofstream& out) const;

  std::string typeName;  // the type's text, simple names for plain definitions
  Node* type = nullptr;  // the declaration that the type names, the last one inside a template
  RareText elementName;  // the declarator suffix
  RareText auxText;      // the "::" name of a type outside the current scope
  NodeList dependencies;
  TypeKind typeKind = unknownType;
  TypeKind elementKind = unknownType;

 private:
  friend class Container;

  void ResolveBounds(const TypeReference& reference, std::optional<Message> unknown,
                     NodeList& deps);
  void ResolveDefinition(const TypeReference& reference, Message notExported, NodeList& deps);

  std::uint32_t serial;
  std::uint32_t lastSerial;
  std::uint32_t position = 0;
};

/// Sorts by creation and removes duplicates.
void SortByCreation(NodeList& nodes);

}  // namespace mdktoidl
