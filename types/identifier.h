// How IDL spells and compares names, and the words that it keeps for itself.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mdktoidl {

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

/// The keyword that a name is, or differs from in nothing but capitals; empty when it is none. IDL
/// forbids both. `isImplementation` adds the words of the component implementation language, which
/// are keywords only in a file that holds a composition.
std::string_view KeywordLike(std::string_view name, bool isImplementation);

/// The text in small letters.
std::string Folded(std::string_view text);

/// Whether IDL takes two names for one: without the escaping underscore, and without regard to
/// capitals.
bool IsSameName(std::string_view left, std::string_view right);

/// Equal for names that IDL takes for one.
std::uint32_t HashOfName(std::string_view name);

/// Whether a name of that hash may be a keyword, or differ from one in nothing but capitals. False
/// for nearly all names that aren't.
bool MayBeKeyword(std::string_view name, std::uint32_t hash);

}  // namespace mdktoidl
