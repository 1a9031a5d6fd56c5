#include "output/layout.h"

#include <algorithm>
#include <array>
#include <utility>

namespace mdktoidl {

const int myIndent = std::ios_base::xalloc();

namespace {

constexpr long blanksPerLevel = 4;
constexpr std::string_view lineEnd =
    "\n                                                                ";

}  // namespace

void newline(std::ofstream& out) {
  long left = out.iword(myIndent);
  const long most = static_cast<long>(lineEnd.size()) - 1;
  out.write(lineEnd.data(), 1 + std::min(left, most));
  for (left -= most; left > 0; left -= most) out.write(lineEnd.data() + 1, std::min(left, most));
}

void Write(std::ofstream& out, std::initializer_list<std::string_view> pieces) {
  std::array<char, 256> line;
  std::size_t size = 0;
  for (const std::string_view piece : pieces) {
    if (piece.size() > line.size() - size) {
      out.write(line.data(), static_cast<std::streamsize>(std::exchange(size, 0)));
    }
    if (piece.size() > line.size()) {
      out.write(piece.data(), static_cast<std::streamsize>(piece.size()));
    } else {
      size += piece.copy(line.data() + size, piece.size());
    }
  }
  out.write(line.data(), static_cast<std::streamsize>(size));
}

void indent(std::ofstream& out) { out.iword(myIndent) += blanksPerLevel; }

void redent(std::ofstream& out) { out.iword(myIndent) -= blanksPerLevel; }

}  // namespace mdktoidl
