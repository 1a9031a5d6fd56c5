// Where declarations stand in the text: which of two comes first.
#pragma once

#include <cstdint>
#include <vector>

#include "tree/module.h"

namespace mdktoidl {

/// The places of all declarations of a tree in the order in which they are written; taken once,
/// when that order is settled.
class Places {
 public:
  explicit Places(const Root& root);

  /// Whether a declaration or forward declaration of `declared` stands before what `user` writes.
  /// True where `user` stands inside it, and where they are written into different files.
  bool IsDeclaredBefore(const Node& declared, const Node& user) const {
    return areInDifferentFiles(declared, user) || declared.Encloses(user) ||
           DeclaredAt(declared) < DefinedAt(user);
  }

  /// Whether the definition of `defined` stands before what `user` writes. Neither stands inside
  /// the other.
  bool IsDefinedBefore(const Node& defined, const Node& user) const {
    return DefinedAt(defined) < DefinedAt(user);
  }

  /// Places are comparable within one file. That of a definition is where it begins, that of a
  /// declaration where its name stands first.
  std::uint32_t DefinedAt(const Node& node) const { return defined_[node.Serial()]; }
  std::uint32_t DeclaredAt(const Node& node) const { return declared_[node.Serial()]; }

  bool areInDifferentFiles(const Node& left, const Node& right) const {
    return !files_.empty() && files_[left.Serial()] != files_[right.Serial()];
  }

 private:
  void PlaceMembers(const OrderedScope& scope);
  void PlaceForwards(const OrderedScope& scope);
  void Place(const Node& node);
  void PlaceFiles(const Root& root);
  void PlaceAhead(const FileScope& file);
  void OpenModules(const Node& declaration, const Node& scope);

  std::vector<std::uint32_t> defined_;
  std::vector<std::uint32_t> declared_;
  std::vector<std::uint32_t> files_;  // by whose number; empty when there is one file
  std::uint32_t next_ = 0;
};

}  // namespace mdktoidl
