#include "output/layout.h"

#include <algorithm>

namespace mdktoidl {

namespace {

constexpr std::size_t most = 1 << 16;
constexpr int blanksPerLevel = 4;
constexpr std::string_view blanks =
    "                                                                ";

}  // namespace

bool Writer::Open(const std::string& path) {
  collected_.clear();
  collected_.reserve(most);
  file_.open(path, std::ios::out | std::ios::trunc);
  return file_.is_open();
}

void Writer::Close() {
  Flush();
  file_.close();
}

Writer& Writer::operator<<(std::string_view text) {
  if (text.size() > most - collected_.size()) Flush();
  if (text.size() > most) {
    file_.write(text.data(), static_cast<std::streamsize>(text.size()));
  } else {
    collected_ += text;
  }
  return *this;
}

void Writer::Flush() {
  file_.write(collected_.data(), static_cast<std::streamsize>(collected_.size()));
  collected_.clear();
}

void newline(Writer& out) {
  out << '\n';
  for (int left = out.indentation_; left > 0; left -= static_cast<int>(blanks.size())) {
    out << blanks.substr(0, std::min(static_cast<std::size_t>(left), blanks.size()));
  }
}

void indent(Writer& out) { out.indentation_ += blanksPerLevel; }

void redent(Writer& out) { out.indentation_ -= blanksPerLevel; }

}  // namespace mdktoidl
