#include "tree/field.h"

#include "output/layout.h"

namespace mdktoidl {

void Field::Unparse(std::ofstream& out) {
  UnparseComment(Entity(), out);
  Line line(out);
  newline(line);
  Write(line, {TypeText(), " ", Name(), DeclaratorSuffix(), ";"});
}

}  // namespace mdktoidl
