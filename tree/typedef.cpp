#include "tree/typedef.h"

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "tree/base_attribute.h"
#include "tree/declaration_user.h"
#include "types/elements.h"
#include "types/predefined_type.h"
#include "types/properties.h"

namespace mdktoidl {

namespace {

constexpr std::string_view word = "typedef ";

bool isTemplate(mdk::IMdeEntity* target) {
  return target != nullptr && target->GetMetaclass() == "TemplateInstantiation";
}

}  // namespace

Typedef::Typedef(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) {
  CreateNodeRef();
  const std::list<mdk::IMdeEntity*> attributes = OwnedAttributes(element);
  if (!attributes.empty()) {
    attribute = attributes.front();
    if (attributes.size() > 1) Report(Message::typedefHasMoreAttributes, {ScopedName("::")});
    return;
  }
  const std::list<mdk::IMdeEntity*> generalizations = Elements(element, properties::generalization);
  if (generalizations.size() == 1)
    general = generalizations.front()->GetEntity(properties::parent, 0);
  if (general == nullptr) Report(Message::typedefLacksType, {ScopedName("::")});
}

void Typedef::EvaluateTypes(NodeList& deps) {
  if (attribute == nullptr && general == nullptr) return;
  if (attribute != nullptr && hasMultiplicity(attribute)) {
    Report(Message::typedefHasMultiplicity, {ScopedName("::")});
  }
  mdk::IMdeEntity* target =
      attribute == nullptr ? general : attribute->GetTarget(properties::type, 0);
  const TypeComplaints complaints = {
      word, std::nullopt,
      isTemplate(target) ? Message::typedefTemplateUnknown : Message::typedefTypeUnknown,
      std::nullopt, Message::typedefTypeNotExported};
  if (attribute != nullptr) {
    ResolveType(attribute, complaints, deps);
    return;
  }
  TypeReference reference;
  EvaluateBaseType2(general, DeclarationUser(*this, word), reference);
  UseType(std::move(reference), complaints, deps);
}

std::optional<Alias> Typedef::AliasOf() const {
  if (known) return known;
  mdk::IMdeEntity* base =
      attribute == nullptr ? general : attribute->GetEntity(properties::type, 0);
  const std::string primitive = PrimitiveToString(base);
  if (!primitive.empty()) return Alias{nullptr, primitive};
  return Alias{GetNodeRef(base), {}};
}

void Typedef::Unparse(std::ofstream& out) {
  UnparseComment(Entity(), out);
  newline(out);
  out << "typedef " << TypeText() << ' ' << Name() << DeclaratorSuffix() << ';';
}

}  // namespace mdktoidl
