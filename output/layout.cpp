#include "output/layout.h"

#include <algorithm>
#include <utility>

namespace mdktoidl {

const int myIndent = std::ios_base::xalloc();

namespace {

constexpr long blanksPerLevel = 4;
constexpr std::string_view lineEnd =
    "\n                                                                ";

/// Writes text that isn't formatted: the stream's own `write` would ask more than that takes. What
/// follows a failure is left out, so that a file with a gap doesn't look complete.
void Put(std::ofstream& out, std::string_view text) {
  const auto length = static_cast<std::streamsize>(text.size());
  if (out.good() && out.rdbuf()->sputn(text.data(), length) != length) {
    out.setstate(std::ios_base::badbit);
  }
}

}  // namespace

void Line::Append(std::string_view text) {
  if (text.size() > text_.size() - size_) Flush();
  if (text.size() > text_.size()) return Put(out_, text);
  size_ += text.copy(text_.data() + size_, text.size());
}

void Line::Flush() { Put(out_, {text_.data(), std::exchange(size_, 0)}); }

void newline(Line& line) {
  constexpr long most = lineEnd.size() - 1;
  long left = line.out_.iword(myIndent);
  line.Append(lineEnd.substr(0, 1 + std::min(left, most)));
  for (left -= most; left > 0; left -= most) line.Append(lineEnd.substr(1, std::min(left, most)));
}

void newline(std::ofstream& out) {
  Line line(out);
  newline(line);
}

void Write(Line& line, std::initializer_list<std::string_view> pieces) {
  for (const std::string_view piece : pieces) line.Append(piece);
}

void Write(std::ofstream& out, std::initializer_list<std::string_view> pieces) {
  Line line(out);
  Write(line, pieces);
}

void indent(std::ofstream& out) { out.iword(myIndent) += blanksPerLevel; }

void redent(std::ofstream& out) { out.iword(myIndent) -= blanksPerLevel; }

}  // namespace mdktoidl
