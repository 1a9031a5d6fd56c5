#include "command/depfile.h"

namespace command {
namespace {

/// A backslash counts as an escape only before a blank or "#", and is then itself escaped.
std::string Escaped(const std::string& path) {
  std::string text;
  std::size_t backslashes = 0;
  for (const char character : path) {
    if (character == ' ' || character == '\t' || character == '#') {
      text.append(backslashes + 1, '\\');
    } else if (character == '$') {
      text += '$';
    }
    text += character;
    backslashes = character == '\\' ? backslashes + 1 : 0;
  }
  return text;
}

}  // namespace

std::string MakeRule(const std::string& target, std::span<const std::string> files) {
  std::string text = Escaped(target) + ":";
  for (const std::string& file : files) text += " \\\n  " + Escaped(file);
  text += "\n";
  for (const std::string& file : files) text += "\n" + Escaped(file) + ":\n";
  return text;
}

}  // namespace command
