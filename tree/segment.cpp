#include "tree/segment.h"

#include "agent/diagnostics.h"
#include "output/layout.h"
#include "output/separated.h"
#include "types/elements.h"
#include "types/properties.h"

namespace mdktoidl {

void Segment::EvaluateTypes(NodeList& deps) {
  if (Elements(Entity(), properties::clientDependency).empty()) {
    Report(Message::segmentHasNoDependencies, {ScopedName("::")});
    return;
  }
  for (mdk::IMdeEntity* supplier : Suppliers(Entity(), "CORBAIsProvidedBy")) {
    if (Node* node = GetNodeRef(supplier)) provided.push_back(node);
  }
  if (provided.empty()) Report(Message::segmentProvidesNothing, {ScopedName("::")});
  JoinList(provided, deps);
}

void Segment::UnparseSegment(std::ofstream& out) const {
  UnparseComment(Entity(), out);
  newline(out);
  out << "segment " << Name() << " { provides ";
  WriteSeparated(provided, out, [&out](const Node* facet) { out << facet->Name(); });
  out << "; };";
}

}  // namespace mdktoidl
