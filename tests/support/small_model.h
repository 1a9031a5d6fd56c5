// XMI files of small models from a line of text each, for tables of them.
//
//   module M {
//     enum Color { literal red }
//     struct S { field tint : M::Color field sizes [*] }
//     interface I : M::J { attr a op get : M::S { in x out y : M::S raises M::E } }
//     const N = 5
//     union U { switch kind : M::Color case a = red }
//   }
//
// Further words: local and abstraction (interfaces), value, abstract and custom (value types),
// event, exception, typedef, sequence, boxed, state, private, default (a case), factory, finder,
// component, home, facet, sink. A base may be followed by "truncatable", a declaration's head by
// "--" and its comment. Names in quotes may hold anything; "\n" in them is a line end. Types are
// paths from the top, or predefined types, "unsigned_long"; "long" may be left out. Everything at
// the top is manifested by the artifact "Out".
#pragma once

#include <string>
#include <string_view>

namespace support {

/// The file's text. `settings` are further attributes of the artifact's IDLGenerator. Throws
/// `std::runtime_error` for a text that it doesn't understand.
std::string SmallModel(std::string_view text, std::string_view settings = "");

}  // namespace support
