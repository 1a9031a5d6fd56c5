// A generated file in the making: its text, its lines and their indentation.
//
// A construct begins each of its lines with `newline` and writes a body between `indent` and
// `redent`, so none of them counts blanks.
#pragma once

#include <fstream>
#include <string>
#include <string_view>

namespace mdktoidl {

/// Text on its way into a file. It is collected and handed on in large pieces: a line goes through
/// here in a dozen of them, and a stream asks more for each than all the rest of writing takes.
class Writer {
 public:
  Writer() = default;
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  /// Opens a file, which loses what it held. False when it can't be opened. The indentation stays.
  bool Open(const std::string& path);
  bool IsOpen() const { return file_.is_open(); }
  /// Writes what is collected and closes the file. What follows a failure is left out, so that a
  /// file with a gap doesn't look complete.
  void Close();

  Writer& operator<<(std::string_view text);
  Writer& operator<<(char character) { return *this << std::string_view(&character, 1); }

 private:
  friend void newline(Writer& out);
  friend void indent(Writer& out);
  friend void redent(Writer& out);

  void Flush();

  std::ofstream file_;
  std::string collected_;  // never grows beyond what is reserved, so that writing takes no memory
  int indentation_ = 0;    // in blanks
};

/// Ends the line and indents the next.
void newline(Writer& out);

/// Indents what follows by one level more.
void indent(Writer& out);

/// Indents what follows by one level less.
void redent(Writer& out);

}  // namespace mdktoidl
