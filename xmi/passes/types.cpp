#include "xmi/passes/types.h"

namespace xmi {

void Types::Set(ItemIndex typed, ItemIndex type) {
  model::Element& element = *reading_.items[typed].element;
  model::Element& designated = *reading_.items[type].element;
  if (designated.Text(properties::name) == "void") reading_.items[typed].flags |= Item::kTypedVoid;
  if (designated.Metaclass() == metaclasses::templateInstantiation) {
    element.SetEntity(properties::targetType, &designated);
    return;
  }
  element.SetEntity(properties::targetType, &IdentOf(type));
  element.SetEntity(properties::type, &designated);
}

model::Element& Types::IdentOf(ItemIndex designated) {
  if (idents_.size() <= designated) idents_.resize(reading_.items.Size());
  model::Element*& ident = idents_[designated];
  if (ident == nullptr) {
    ident = &reading_.model.Create(metaclasses::ident);
    ident->SetTextView(properties::name, reading_.items.NameOf(designated));
    ident->SetEntity(properties::definition, reading_.items[designated].element);
  }
  return *ident;
}

}  // namespace xmi
