// How IDL spells and compares names.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace command {

/// Whether a text can be written as the name of a declaration: a letter of ASCII, then letters,
/// digits and underscores. One underscore may stand before it: IDL takes that off again, and what
/// follows is a name even if it is a keyword ("_struct"), so users write it on purpose.
bool IsIdentifier(std::string_view name);

/// Whether the name is written with the underscore that makes any keyword a name.
inline bool IsEscaped(std::string_view name) { return name.starts_with('_'); }
/// The name without that underscore.
inline std::string_view Unescaped(std::string_view name) {
  return IsEscaped(name) ? name.substr(1) : name;
}

/// The text in small letters.
std::string Folded(std::string_view text);

/// Whether IDL takes two names for one: without the escaping underscore, and without regard to
/// capitals.
bool IsSameName(std::string_view left, std::string_view right);

/// For tables of names by what IDL takes for one.
struct NameHash {
  std::size_t operator()(std::string_view name) const;
};
struct NameEqual {
  bool operator()(std::string_view left, std::string_view right) const {
    return IsSameName(left, right);
  }
};

}  // namespace command
