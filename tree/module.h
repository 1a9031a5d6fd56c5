// An IDL module: a package of the model, with the file that it may have of its own.
#pragma once

#include <string>

#include "tree/ordered_scope.h"

namespace mdktoidl {

class Module : public OrderedScope {
 public:
  /// A module inside `parent`, another module; at the top of the tree when that is null. Throws
  /// `IDLException` when modules are nested more than 256 deep.
  Module(mdk::IMdeEntity* element, Container* parent);

  void EvaluateTypes(NodeList& deps) override;
  void Unparse(std::ofstream& out) override;
  bool isModule() const override { return true; }

  /// The module's file, relative to the root directory; empty until types are evaluated, and when
  /// everything goes into one file.
  const std::string& ScopedFileName() const { return fileName; }

  /// The node whose file holds `node`: the innermost module around it, or else the root.
  static const Node* GetFileNode(const Node* node);

 private:
  void ObserveReferences(const Node& child, const NodeList& references) override;
  void Init();
  void NameFile();
  void UnparseBlock(std::ofstream& out) const;
  /// Modules inside this one are left out when they have files of their own.
  void UnparseMembers(std::ofstream& out) const override;
  void UnparseModuleScope(std::ofstream& out) const;
  void UnparseModuleScopeEnd(std::ofstream& out) const;
  void UnparsePackageRelationships(std::ofstream& out) const;

  int depth;  // 1 at the top of the tree
  bool onlyModules = true;
  std::string fileName;
  NodeList external;  // what the contents use outside this module
  NodeList nested;    // what the contents of this module's own file use in modules inside it
};

}  // namespace mdktoidl
