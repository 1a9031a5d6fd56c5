// How IDL spells and compares names.
#pragma once

#include <string>
#include <string_view>

namespace command {

/// Whether a text can be written as the name of a declaration: a letter of ASCII, then letters,
/// digits and underscores. One underscore may stand before it: IDL takes that off again, and what
/// follows is a name even if it is a keyword ("_struct"), so users write it on purpose.
bool IsIdentifier(std::string_view name);

/// Whether the name is written with the underscore that makes any keyword a name.
bool IsEscaped(std::string_view name);

/// The text in small letters.
std::string Folded(std::string_view text);

/// What IDL compares names by: without the escaping underscore, and without regard to capitals.
std::string ComparisonKey(std::string_view name);

}  // namespace command
