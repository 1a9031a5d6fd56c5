#include "tree/field.h"

#include "output/layout.h"

namespace mdktoidl {

void Field::Unparse(std::ofstream& out) {
  UnparseComment(Entity(), out);
  newline(out);
  Write(out, {TypeText(), " ", Name(), DeclaratorSuffix(), ";"});
}

}  // namespace mdktoidl
