// Which construct a model element becomes: by its metaclass, then by its markings.
//
// Each kind of container has a table of its own. The first row of the element's metaclass decides
// alone; in it the first candidate that fits. What fits nowhere is passed over.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tree/container.h"
#include "types/elements.h"

namespace mdktoidl {

struct Candidate {
  bool (*fits)(mdk::IMdeEntity* member);
  std::unique_ptr<Node> (*make)(mdk::IMdeEntity* member, Container* parent);
};

struct ClassificationRow {
  std::string metaclass;
  std::vector<Candidate> candidates;
};

using Classification = std::vector<ClassificationRow>;

/// Builds the node of a member; null for one that is passed over, and for null. A member that was
/// built elsewhere in the same top-level declaration is reported.
std::unique_ptr<Node> Classify(const Classification& table, mdk::IMdeEntity* member,
                               Container* parent);

/// Fits what carries a marking.
template <const Stereotype& stereotype>
bool Carries(mdk::IMdeEntity* member) {
  return isMarked(member, stereotype);
}

/// Fits what has a stereotype applied.
template <const Stereotype& stereotype>
bool Has(mdk::IMdeEntity* member) {
  return hasStereotype(member, stereotype);
}

inline bool isPublicConstant(mdk::IMdeEntity* member) {
  return isPublic(member) && isConstant(member);
}

/// Makes a node of one construct.
template <typename Made>
std::unique_ptr<Node> Make(mdk::IMdeEntity* member, Container* parent) {
  return MakeNode<Made>(member, parent);
}

}  // namespace mdktoidl
