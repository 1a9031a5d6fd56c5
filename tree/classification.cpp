#include "tree/classification.h"

namespace mdktoidl {

std::unique_ptr<Node> Classify(const Classification& table, mdk::IMdeEntity* member,
                               Container* parent) {
  if (member == nullptr) return nullptr;
  for (const ClassificationRow& row : table) {
    if (!member->IsKindOf(row.metaclass)) continue;
    for (const Candidate& candidate : row.candidates) {
      if (candidate.fits(member)) return candidate.make(member, parent);
    }
    return nullptr;
  }
  return nullptr;
}

}  // namespace mdktoidl
