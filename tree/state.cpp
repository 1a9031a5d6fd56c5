#include "tree/state.h"

#include "output/layout.h"
#include "types/marking.h"

namespace mdktoidl {

// The declarator suffix is deliberately not written here, unlike for attributes and fields.
void State::Unparse(std::ofstream& out) {
  UnparseComment(Entity(), out);
  newline(out);
  out << (isPublic(Entity()) ? "public " : "private ") << TypeText() << ' ' << Name() << ';';
}

}  // namespace mdktoidl
