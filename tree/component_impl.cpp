#include "tree/component_impl.h"

#include "agent/diagnostics.h"
#include "tree/home_impl.h"
#include "tree/segment.h"
#include "tree/single_supplier.h"
#include "types/elements.h"
#include "types/markings.h"
#include "types/properties.h"

namespace mdktoidl {

ComponentImpl::ComponentImpl(mdk::IMdeEntity* element, Container* parent)
    : Container(element, parent) {
  CreateNodeRef();
  for (mdk::IMdeEntity* member : Elements(element, properties::ownedMember)) {
    if (member->IsKindOf("Class")) AdoptMember(member);
  }
  if (homeExecutor == nullptr) {
    Report(Message::compositionLacksHomeExecutor, {ScopedName("::")});
  }
}

void ComponentImpl::AdoptMember(mdk::IMdeEntity* member) {
  if (isMarked(member, markings::corbaHomeImpl)) {
    if (homeExecutor != nullptr) {
      Report(Message::compositionHasMoreHomeExecutors, {ScopedName("::")});
      return;
    }
    auto executor = std::make_unique<HomeImpl>(member, this);
    homeExecutor = executor.get();
    Adopt(std::move(executor));
  } else if (isMarked(member, markings::corbaSegment)) {
    auto segment = std::make_unique<Segment>(member, this);
    segments.push_back(segment.get());
    Adopt(std::move(segment));
  }
}

std::string ComponentImpl::Category() const {
  return TaggedLiteral(Entity(), "CORBAComponentImpl (. category .)", "session");
}

std::string ComponentImpl::CompositionName() const {
  mdk::IMdeEntity* composite = Entity()->EvalExpression("CORBAComponentImpl (. composite .)", 0);
  const std::string given =
      composite == nullptr ? "" : composite->GetValue(properties::valueString, 0);
  return given.empty() ? Name() : given;
}

void ComponentImpl::EvaluateTypes(NodeList& deps) {
  EvaluateChildren(deps);
  if (homeExecutor != nullptr && !homeExecutor->isComplete()) {
    Report(Message::compositionLacksHomeExecutor, {ScopedName("::")});
  }
  Node* component = SingleSupplier(*this, "CORBAImplements", Message::compositionImplementsMore);
  if (component != nullptr) deps.push_back(component);
  const std::string category = Category();
  if (!segments.empty() && category != "process" && category != "entity") {
    Report(Message::compositionCannotBeSegmented, {ScopedName("::")});
  }
}

void ComponentImpl::Unparse(std::ofstream& out) {
  UnparseHeading(out);
  out << "composition " << Category() << ' ' << CompositionName();
  UnparseBody(out);
}

void ComponentImpl::UnparseMembers(std::ofstream& out) const {
  homeExecutor->UnparseExecutor(segments, out);
}

}  // namespace mdktoidl
