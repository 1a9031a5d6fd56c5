// What is to be known of each construct of IDL as such, whatever the model says of one: a row of
// facts that stands beside the construct's own code. Whoever reads the tree asks for these and
// never which construct it is, so a new one can't be forgotten anywhere.
#pragma once

#include <cstdint>
#include <string_view>

namespace mdktoidl {

/// Whether names are looked up in it, so that what it declares hides the same names around it.
enum class ScopeKind : std::uint8_t {
  none,
  open,
  /// It is, and nothing directly inside may have its own name.
  reservesItsName
};

enum class Inheritance : std::uint8_t {
  none,
  /// As a member it is passed on to what is derived, which then can't declare the name again.
  inherited,
  /// It inherits members from its bases and passes on its own.
  inherits
};

/// Whether IDL has a forward declaration of it, and for whom that suffices.
enum class Forward : std::uint8_t {
  no,
  /// What is of such a type holds it, so only a sequence may be made of it before it is defined.
  inSequences,
  /// What is of such a type refers to it, and needs no more.
  asType
};

/// Which language declares it: IDL, or that of component implementations.
enum class Language : std::uint8_t { idl, cidl };

/// A row has to give all of it.
struct Construct {
  std::string_view word;  ///< what users call it: "struct", "operation"
  ScopeKind scope;
  Inheritance inheritance;
  Forward forward;
  Language language;
  int rank;  ///< the order in which kinds are listed, scopes before what stands in them
};

}  // namespace mdktoidl
