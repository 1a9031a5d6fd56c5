#include "tree/openings.h"

namespace mdktoidl {

namespace {

/// The declaration around another; at the top of the tree that is `top`, the root.
const Node* Around(const Node& declaration, const Node* top) {
  return declaration.Enclosing() == nullptr ? top : declaration.Enclosing();
}

/// The modules around a declaration that stand in `around`, from the outermost in.
std::vector<const Node*> ModulesTo(const Node& declaration, const Node* around) {
  std::vector<const Node*> path;
  for (const Node* each = declaration.Enclosing(); each != nullptr && each != around;
       each = each->Enclosing()) {
    path.push_back(each);
  }
  return {path.rbegin(), path.rend()};
}

}  // namespace

void Openings::GoTo(const Node& declaration) {
  if (Around(declaration, scope_) == open_) return;
  const Node* around = open_;
  while (around != scope_ && !around->Encloses(declaration)) around = Around(*around, scope_);
  CloseUpTo(around);
  for (const Node* module : ModulesTo(declaration, around)) {
    const bool isFirst = opened_.insert(module).second;
    module->UnparseOpening(isFirst, out_);
    if (isFirst) module->AsOrderedScope()->UnparseForwards(out_);
    open_ = module;
  }
}

void Openings::CloseUpTo(const Node* around) {
  for (; open_ != around; open_ = Around(*open_, scope_)) open_->UnparseClosing(out_);
}

void WriteForwards(const Node& scope, const NodeList& declarations, Writer& out) {
  const Node* open = &scope;
  for (const Node* declaration : declarations) {
    const Node* around = open;
    while (around != &scope && !around->Encloses(*declaration)) {
      around->UnparseClosing(out);
      around = Around(*around, &scope);
    }
    for (const Node* module : ModulesTo(*declaration, around)) {
      module->UnparseOpening(false, out);
      around = module;
    }
    open = around;
    declaration->UnparseForward(out);
  }
  for (; open != &scope; open = Around(*open, &scope)) open->UnparseClosing(out);
}

}  // namespace mdktoidl
