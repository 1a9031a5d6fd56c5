// The upper levels of the tree: its root, the modules, and the placeholders beside them.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tree/container.h"
#include "tree/node_registry.h"

namespace mdktoidl {

/// What a file has besides its own declarations, where each module has one.
struct FileFrame {
  NodeList forwards;                ///< declarations of other files, declared before the includes
  std::vector<std::string> before;  ///< the files that are included before the declarations
  std::vector<std::string> behind;  ///< and behind them
};

/// A scope that may have a file of its own: the root and the modules.
class FileScope : public OrderedScope {
 public:
  /// The path of that file, relative to the root directory; empty for a module when everything goes
  /// into one file.
  virtual std::string ScopedFileName() const = 0;
  /// Whose files are included in the plain form, in the order written; some more than once.
  virtual std::vector<const Node*> Included() const = 0;
  /// Gives the file another frame than that of the plain form.
  void SetFrame(FileFrame frame) { frame_ = std::make_unique<FileFrame>(std::move(frame)); }
  /// That; null for that of the plain form.
  const FileFrame* Frame() const { return frame_.get(); }

 protected:
  using OrderedScope::OrderedScope;

  /// Whether its frame is not that of the plain form.
  bool isFramed() const { return frame_ != nullptr; }
  void UnparseFrameBefore(Writer& out) const;
  void UnparseFrameBehind(Writer& out) const;
  void UnparseChild(const Node& child, Writer& out) const override;

 private:
  std::unique_ptr<FileFrame> frame_;
};

/// The tree of one run: the declarations that the exported artifact names.
class Root : public FileScope {
 public:
  explicit Root(mdk::IMdeEntity* artifact) : FileScope(artifact, nullptr) {}

  static constexpr Construct kind{"artifact",  ScopeKind::open, Inheritance::none,
                                  Forward::no, Language::idl,   27};
  const Construct& Kind() const override { return kind; }
  bool isDeclared() const override { return false; }

  /// Appends a declaration; the root owns it from then on.
  void AddNode(std::unique_ptr<Node> node) { Adopt(std::move(node)); }

  std::string ScopedFileName() const override;
  /// None: the plain form's main file leaves it to others what else to read.
  std::vector<const Node*> Included() const override { return {}; }

  /// Whether the main file holds more than its head, its foot and includes of modules'
  /// files.
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
  void UnparseChild(const Node& child, Writer& out) const override;
};

/// The tree of the current run; null between runs.
extern Root* root;

/// An IDL module: a package of the model, with the file that it may have of its own.
class Module : public FileScope {
 public:
  /// A module inside `parent`, another module; at the top of the tree when that is null. Throws
  /// `IDLException` when modules are nested more than 256 deep.
  Module(mdk::IMdeEntity* element, Container* parent);

  static constexpr Construct kind{
      "module", ScopeKind::reservesItsName, Inheritance::none, Forward::no, Language::idl, 0};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;
  bool isModule() const override { return true; }
  bool isDeclared() const override { return !isLeftOut; }
  void UnparseOpening(bool isFirst, Writer& out) const override;
  void UnparseClosing(Writer& out) const override;
  void Repair(const ConstantNames&) override { isLeftOut = declaresNothing(); }

  std::string ScopedFileName() const override;
  std::vector<const Node*> Included() const override;

  /// The node whose file holds `node`: the innermost module around it, or else the root.
  static const Node* GetFileNode(const Node* node);

  /// Lets the file of `user` include that of what it turned out to use after it was evaluated.
  static void NoteUse(const Node& user, Node& used);

 protected:
  void ResolveTypes(NodeList& deps) override;

 private:
  void ObserveReferences(const Node& child, const NodeList& references) override;
  void Init();
  bool declaresNothing() const;
  void UnparseBlock(Writer& out) const;
  void UnparseModuleScope(Writer& out) const;
  void UnparseModuleScopeEnd(Writer& out) const;

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
  void Unparse(Writer&) const override {}

 protected:
  void ResolveTypes(NodeList&) override {}
};

}  // namespace mdktoidl
