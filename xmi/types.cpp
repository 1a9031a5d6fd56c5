#include "xmi/types.h"

#include "xmi/symbols.h"

namespace xmi {

void Types::Set(ItemIndex typed, ItemIndex type) {
  model::Element& element = *reading_.items[typed].element;
  model::Element& designated = *reading_.items[type].element;
  if (designated.Text(symbols::name) == "void") reading_.items[typed].flags |= Item::kTypedVoid;
  if (designated.Metaclass() == symbols::templateInstantiation) {
    element.SetEntity(symbols::targetType, &designated);
    return;
  }
  element.SetEntity(symbols::targetType, &IdentOf(type));
  element.SetEntity(symbols::type, &designated);
}

model::Element& Types::IdentOf(ItemIndex designated) {
  if (idents_.size() <= designated) idents_.resize(reading_.items.Size());
  model::Element*& ident = idents_[designated];
  if (ident == nullptr) {
    ident = &reading_.model.Create(symbols::ident);
    ident->SetTextView(symbols::name, reading_.items.NameOf(designated));
    ident->SetEntity(symbols::definition, reading_.items[designated].element);
  }
  return *ident;
}

}  // namespace xmi
