// The layout of written text: line ends and indentation, kept in the stream itself.
//
// A construct begins each of its lines with `newline` and writes a body between `indent` and
// `redent`, so none of them counts blanks.
#pragma once

#include <fstream>
#include <initializer_list>
#include <string_view>

namespace mdktoidl {

/// Index of the extensible word in which a stream keeps its indentation, counted in blanks.
extern const int myIndent;

/// Ends the line and indents the next. The line is not flushed: a stream that is closed is
/// complete, and a system call for every line would cost more than all the rest of writing.
void newline(std::ofstream& out);

/// Writes the pieces of a line one after the other. Much cheaper than to insert each of them.
void Write(std::ofstream& out, std::initializer_list<std::string_view> pieces);

/// Indents what follows by one level more.
void indent(std::ofstream& out);

/// Indents what follows by one level less.
void redent(std::ofstream& out);

}  // namespace mdktoidl
