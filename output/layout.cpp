#include "output/layout.h"

#include <algorithm>
#include <string_view>

namespace mdktoidl {

const int myIndent = std::ios_base::xalloc();

namespace {

constexpr long blanksPerLevel = 4;
constexpr std::string_view blanks =
    "                                                                ";

}  // namespace

void newline(std::ofstream& out) {
  out.put('\n');
  long left = out.iword(myIndent);
  while (left > 0) {
    const long width = std::min(left, static_cast<long>(blanks.size()));
    out.write(blanks.data(), width);
    left -= width;
  }
}

void indent(std::ofstream& out) { out.iword(myIndent) += blanksPerLevel; }

void redent(std::ofstream& out) { out.iword(myIndent) -= blanksPerLevel; }

}  // namespace mdktoidl
