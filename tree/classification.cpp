#include "tree/classification.h"

#include "tree/node_registry.h"

namespace mdktoidl {

namespace {

/// Attributes own nothing, and a signal stands in every interface that receives it.
bool mayStandTwice(const std::string& metaclass) {
  return metaclass == metaclasses::attribute || metaclass == metaclasses::signal;
}

bool Take(mdk::IMdeEntity* member, const Container& parent) {
  if (nodeRegistry.Take(member)) return true;
  parent.Report(Message::memberDeclaredAlready,
                {parent.ScopedName("::"), member->GetValue(properties::name, 0)});
  return false;
}

}  // namespace

std::unique_ptr<Node> Classify(const Classification& table, mdk::IMdeEntity* member,
                               Container* parent) {
  if (member == nullptr) return nullptr;
  for (const ClassificationRow& row : table) {
    if (!member->IsKindOf(row.metaclass)) continue;
    for (const Candidate& candidate : row.candidates) {
      if (!candidate.fits(member)) continue;
      if (!mayStandTwice(row.metaclass) && !Take(member, *parent)) return nullptr;
      return candidate.make(member, parent);
    }
    return nullptr;
  }
  return nullptr;
}

}  // namespace mdktoidl
