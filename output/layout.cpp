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

/// Writes text that isn't formatted: the stream's own `write` would ask more than that takes. What
/// follows a failure is left out, so that a file with a gap doesn't look complete.
void Put(std::ofstream& out, const char* text, std::size_t size) {
  const auto length = static_cast<std::streamsize>(size);
  if (out.good() && out.rdbuf()->sputn(text, length) != length) {
    out.setstate(std::ios_base::badbit);
  }
}

}  // namespace

void newline(std::ofstream& out) {
  long left = out.iword(myIndent);
  const long most = static_cast<long>(lineEnd.size()) - 1;
  Put(out, lineEnd.data(), 1 + std::min(left, most));
  for (left -= most; left > 0; left -= most) Put(out, lineEnd.data() + 1, std::min(left, most));
}

void Write(std::ofstream& out, std::initializer_list<std::string_view> pieces) {
  std::array<char, 256> line;
  std::size_t size = 0;
  for (const std::string_view piece : pieces) {
    if (piece.size() > line.size() - size) {
      Put(out, line.data(), std::exchange(size, 0));
    }
    if (piece.size() > line.size()) {
      Put(out, piece.data(), piece.size());
    } else {
      size += piece.copy(line.data() + size, piece.size());
    }
  }
  Put(out, line.data(), size);
}

void indent(std::ofstream& out) { out.iword(myIndent) += blanksPerLevel; }

void redent(std::ofstream& out) { out.iword(myIndent) -= blanksPerLevel; }

}  // namespace mdktoidl
