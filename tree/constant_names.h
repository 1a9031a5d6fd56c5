// What labels that are constants' names mean: the model has them as texts.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "tree/node.h"

namespace mdktoidl {

class Root;

class ConstantNames {
 public:
  /// The tree has to be built; it is gone through at the first question.
  explicit ConstantNames(const Root& root) : root_(root) {}

  /// The constant that a name means where a declaration stands: in the scopes around it, from the
  /// inside out, and what they inherit. Null for none, and for a text that is no name.
  Node* Find(const Node& user, std::string_view name) const;

  /// Whether a text may be the name of a constant of an included file, of which nothing is known.
  bool mayBeIncluded(std::string_view text) const;

 private:
  struct Index {
    std::unordered_map<std::string, Node*> byScopedName;
    std::unordered_set<std::string_view> names;  // simple ones, of all constants
    bool hasIncludes = false;
  };

  const Index& All() const;
  Node* FindIn(const Node& scope, std::string_view name) const;
  Node* FindScoped(const std::string& scopedName) const;

  const Root& root_;
  mutable std::unique_ptr<Index> index_;  // null before the first question
};

}  // namespace mdktoidl
