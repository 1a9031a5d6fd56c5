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

std::string_view Unescaped(std::string_view name) {
  return IsEscaped(name) ? name.substr(1) : name;
}

bool IsIdentifier(std::string_view name) {
  name = Unescaped(name);
  return !name.empty() && IsLetter(name.front()) && std::ranges::all_of(name, MayFollow);
}

std::string Folded(std::string_view text) {
  std::string folded(text);
  for (char& character : folded) character = Small(character);
  return folded;
}

bool IsSameName(std::string_view left, std::string_view right) {
  return std::ranges::equal(Unescaped(left), Unescaped(right), {}, Small, Small);
}

std::size_t NameHash::operator()(std::string_view name) const {
  std::size_t hash = 14695981039346656037U;  // FNV-1a
  for (const char character : Unescaped(name)) {
    hash = (hash ^ static_cast<unsigned char>(Small(character))) * 1099511628211U;
  }
  return hash;
}

}  // namespace command
