#include "tree/home_impl.h"

#include "output/layout.h"
#include "tree/segment.h"
#include "tree/single_supplier.h"

namespace mdktoidl {

void HomeImpl::EvaluateTypes(NodeList& deps) {
  home = SingleSupplier(*this, "CORBAImplements", Message::homeExecutorImplementsMore);
  managed = SingleSupplier(*this, "CORBAManages", Message::homeExecutorManagesMore);
  if (home != nullptr) deps.push_back(home);
  // The enclosing implementation is no dependency: it is being declared here.
  if (managed != nullptr && managed != Scope()) deps.push_back(managed);
}

void HomeImpl::UnparseExecutor(std::span<const Segment* const> segments, std::ofstream& out) const {
  UnparseComment(Entity(), out);
  newline(out);
  out << "home executor " << Name() << " {";
  indent(out);
  newline(out);
  out << "implements " << NameHere(*home) << ';';
  UnparseManaged(segments, out);
  redent(out);
  newline(out);
  out << "};";
}

void HomeImpl::UnparseManaged(std::span<const Segment* const> segments, std::ofstream& out) const {
  newline(out);
  out << "manages " << NameHere(*managed);
  if (!segments.empty()) {
    out << " {";
    indent(out);
    for (const Segment* segment : segments) segment->UnparseSegment(out);
    redent(out);
    newline(out);
    out << '}';
  }
  out << ';';
}

}  // namespace mdktoidl
