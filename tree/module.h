// The upper levels of the tree: its root, the modules, and the placeholders beside them.
#pragma once

#include <string>

#include "tree/container.h"
#include "tree/node_registry.h"

namespace mdktoidl {

/// The tree of one run: the declarations that the exported artifact names.
class Root : public OrderedScope {
 public:
  explicit Root(mdk::IMdeEntity* artifact) : OrderedScope(artifact, nullptr) {}

  static constexpr Construct kind{"artifact",  ScopeKind::open, Inheritance::none,
                                  Forward::no, Language::idl,   27};
  const Construct& Kind() const override { return kind; }
  bool isDeclared() const override { return false; }
  bool writesComments() const override { return false; }

  /// Appends a declaration; the root owns it from then on.
  void AddNode(std::unique_ptr<Node> node) { Adopt(std::move(node)); }

  /// Whether the main file holds more than its head and foot: includes or declarations.
  bool hasOwnFile() const;

  /// Numbers all nodes in the order in which they stand in the tree, after some were put into it.
  void NumberAnew();

  /// Evaluates the whole tree: types, rules and order.
  void EvaluateTypes();

  /// Makes the directories that modules have of their own.
  void MakeDirectories() const;

  /// Writes the whole tree. `out` is the open main file; with a file for each module it is the last
  /// of those, or closed, on return.
  void Unparse(Writer& out) const override;

  /// Every node of the tree, this one first, in the order of creation: what encloses others comes
  /// before them, and its `LastSerial` is the place of the last inside it.
  const std::vector<Node*>& Nodes() const { return nodeRegistry.Nodes(); }
  /// The hashes of their names, by the same numbers, and the numbers of those whose names may be no
  /// identifiers, or keywords.
  const std::vector<std::uint32_t>& NameHashes() const { return nodeRegistry.NameHashes(); }
  const std::vector<std::uint32_t>& DoubtfulNames() const { return nodeRegistry.DoubtfulNames(); }

 private:
  void UnparseNode(const Node& node, Writer& out) const;
};

/// The tree of the current run; null between runs.
extern Root* root;

/// An IDL module: a package of the model, with the file that it may have of its own.
class Module : public OrderedScope {
 public:
  /// A module inside `parent`, another module; at the top of the tree when that is null. Throws
  /// `IDLException` when modules are nested more than 256 deep.
  Module(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{
      "module", ScopeKind::reservesItsName, Inheritance::none, Forward::no, Language::idl, 0};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  bool isModule() const override { return true; }
  void Repair(const ConstantNames&) override { isLeftOut = declaresNothing(); }

  /// The path of the file that the module has of its own, relative to the root directory; empty
  /// when everything goes into one file.
  std::string ScopedFileName() const;

  /// The node whose file holds `node`: the innermost module around it, or else the root.
  static const Node* GetFileNode(const Node* node);

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  void ObserveReferences(const Node& child, const NodeList& references) override;
  void Init();
  bool declaresNothing() const;
  void UnparseBlock(Writer& out) const;
  /// Modules inside this one are left out when they have files of their own.
  void UnparseMembers(Writer& out) const override;
  void UnparseModuleScope(Writer& out) const;
  void UnparseModuleScopeEnd(Writer& out) const;
  void UnparsePackageRelationships(Writer& out) const;

  bool isLeftOut = false;  // since it declares nothing; a file that it has of its own stays
  int depth;               // 1 at the top of the tree
  NodeList external;       // what the contents use outside this module
  NodeList nested;         // what the contents of this module's own file use in modules inside it
};

/// An include of an IDL file that is not part of the export.
class Include : public Node {
 public:
  /// For an artifact that stands for an IDL file; at the top of the tree when `parent` is null.
  Include(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) { CreateNodeRef(); }

  static constexpr Construct kind{"include",   ScopeKind::none, Inheritance::none,
                                  Forward::no, Language::idl,   26};
  const Construct& Kind() const override { return kind; }
  bool isDeclared() const override { return false; }
  bool writesComments() const override { return false; }
  void Unparse(Writer& out) const override;

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  /// The file name that the artifact gives. Throws `IDLException` when it gives none.
  std::string ExtractFile() const;

  std::string fileName;
};

/// An element marked as an artifact: no IDL of its own, but others may refer to it.
class Artifact : public Node {
 public:
  Artifact(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) { CreateNodeRef(); }

  static constexpr Construct kind{"artifact",  ScopeKind::none, Inheritance::none,
                                  Forward::no, Language::idl,   27};
  const Construct& Kind() const override { return kind; }
  bool isDeclared() const override { return false; }
  bool writesComments() const override { return false; }
  void Unparse(Writer&) const override {}

 protected:
  void ResolveTypes(NodeList&) override {}
};

}  // namespace mdktoidl
