#include "tree/sequence.h"

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "tree/base_attribute.h"
#include "types/template_type.h"

namespace mdktoidl {

Sequence::Sequence(mdk::IMdeEntity* element, Container* parent) : Node(element, parent) {
  CreateNodeRef();
  attribute =
      BaseAttribute(*this, Message::sequenceLacksAttribute, Message::sequenceHasMoreAttributes);
}

void Sequence::EvaluateTypes(NodeList& deps) {
  static constexpr TypeComplaints complaints = {"sequence ", std::nullopt,
                                                Message::sequenceTypeUnknown, std::nullopt,
                                                Message::sequenceTypeNotExported};
  if (attribute == nullptr) return;
  if (hasMultiplicity(attribute)) Report(Message::sequenceHasMultiplicity, {ScopedName("::")});
  ResolveType(attribute, complaints, deps);
  if (typeKind != templateType) return;
  if (DeclaratorSuffix().empty()) {
    Report(Message::sequenceTypeAnonymous, {ScopedName("::")});
  } else {
    Report(Message::sequenceTypeIsArray, {ScopedName("::")});
  }
}

void Sequence::Unparse(std::ofstream& out) {
  UnparseComment(Entity(), out);
  newline(out);
  out << "typedef " << SequenceText(TypeText()) << ' ' << Name() << ';';
}

}  // namespace mdktoidl
