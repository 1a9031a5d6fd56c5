#include "tree/field.h"

#include "output/layout.h"

namespace mdktoidl {

void Field::Unparse(std::ofstream& out) {
  UnparseComment(Entity(), out);
  newline(out);
  out << TypeText() << ' ' << Name() << DeclaratorSuffix() << ';';
}

}  // namespace mdktoidl
