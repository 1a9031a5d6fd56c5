#include "command/idl_identifier.h"

#include <algorithm>

namespace command {
namespace {

// Not those of <cctype>: the user's locale has no say in what IDL allows.
bool IsLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

bool MayFollow(char character) {
  return IsLetter(character) || IsDigit(character) || character == '_';
}

char Small(char character) {
  const bool isCapital = character >= 'A' && character <= 'Z';
  return isCapital ? static_cast<char>(character - 'A' + 'a') : character;
}

}  // namespace

bool IsEscaped(std::string_view name) { return name.starts_with('_'); }

bool IsIdentifier(std::string_view name) {
  if (IsEscaped(name)) name.remove_prefix(1);
  return !name.empty() && IsLetter(name.front()) && std::ranges::all_of(name, MayFollow);
}

std::string Folded(std::string_view text) {
  std::string folded(text);
  for (char& character : folded) character = Small(character);
  return folded;
}

std::string ComparisonKey(std::string_view name) {
  if (IsEscaped(name)) name.remove_prefix(1);
  return Folded(name);
}

}  // namespace command
