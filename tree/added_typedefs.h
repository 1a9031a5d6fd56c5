// Names for the types that IDL takes no templates for: those of attributes, parameters and results.
#pragma once

#include <string_view>

#include "tree/module.h"

namespace mdktoidl {

/// A typedef that no element of the model stands for.
class AddedTypedef : public Node {
 public:
  /// `user` is the element that needs it first, and the one to tell of in its stead. `parent` is
  /// null at the top of the tree.
  AddedTypedef(mdk::IMdeEntity* user, std::string_view name, Container* parent)
      : Node(user, name, parent) {}

  static constexpr Construct kind{"typedef",   ScopeKind::none, Inheritance::none,
                                  Forward::no, Language::idl,   13};
  const Construct& Kind() const override { return kind; }
  void Unparse(Writer& out) const override;

  /// Makes it another name of a type, and enters what that uses.
  void Define(const WrittenType& named);

 protected:
  void ResolveTypes(NodeList&) override {}

 private:
  WrittenType type;
};

/// Has each type that needs a name written by one: that of a typedef or sequence of the model that
/// means the same and stands in a scope around the user, or else that of a typedef that is added.
/// For a tree that is evaluated; numbers it anew when anything is added.
void NameTypes(Root& root);

}  // namespace mdktoidl
