// The layout of written text: line ends and indentation, kept in the stream itself.
//
// A construct begins each of its lines with `newline` and writes a body between `indent` and
// `redent`, so none of them counts blanks.
#pragma once

#include <array>
#include <cstddef>
#include <fstream>
#include <initializer_list>
#include <string_view>

namespace mdktoidl {

/// Index of the extensible word in which a stream keeps its indentation, counted in blanks.
extern const int myIndent;

/// Text that is handed to a stream at once: at the end of this object's life, or earlier when there
/// is too much of it. What else is written to the stream meanwhile would come before it.
class Line {
 public:
  explicit Line(std::ofstream& out) : out_(out) {}
  ~Line() { Flush(); }
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;

 private:
  friend void newline(Line& line);
  friend void Write(Line& line, std::initializer_list<std::string_view> pieces);

  void Append(std::string_view text);
  void Flush();

  std::ofstream& out_;
  std::size_t size_ = 0;
  std::array<char, 256> text_;
};

/// Ends the line and indents the next. The line is not flushed: a stream that is closed is
/// complete, and a system call for every line would cost more than all the rest of writing.
void newline(std::ofstream& out);
void newline(Line& line);

/// Writes the pieces of a line one after the other. Much cheaper than to insert each of them, and
/// cheaper still for a `Line`.
void Write(std::ofstream& out, std::initializer_list<std::string_view> pieces);
void Write(Line& line, std::initializer_list<std::string_view> pieces);

/// Indents what follows by one level more.
void indent(std::ofstream& out);

/// Indents what follows by one level less.
void redent(std::ofstream& out);

}  // namespace mdktoidl
