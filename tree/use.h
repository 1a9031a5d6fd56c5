// The record of what declarations use: each name that one writes, and whom it means by it.
//
// Every construct enters its names here once, when its types are resolved. The dependencies among
// declarations, the written text, the checks and the picture all read this record; nothing else
// knows which names a construct writes, or how.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "output/layout.h"

namespace mdktoidl {

class Definition;
class Node;
struct Identifier;

/// The place of a name in the declaration that writes it.
enum class UseRole : std::uint8_t {
  type,        ///< what something is of; a discriminator's, too
  element,     ///< the same inside a sequence or an array
  bound,       ///< how long a sequence may get
  value,       ///< what a constant is
  label,       ///< when a union holds a case
  base,        ///< what a declaration inherits from
  supports,    ///< an interface of a value type, a component or a home
  raises,      ///< an exception of an operation
  port,        ///< what a port provides, uses, emits, publishes or consumes
  manages,     ///< the component of a home, or the implementation of an executor
  primaryKey,  ///< by what a home finds its components
  implements,  ///< what an implementation is one of
  provides     ///< a facet of a segment
};

/// Whether a role stands behind the declaration's name, and so in no scope that it makes.
constexpr bool isInHeader(UseRole role) {
  return role == UseRole::base || role == UseRole::supports || role == UseRole::manages ||
         role == UseRole::primaryKey || role == UseRole::implements;
}

enum class Spelling : std::uint8_t {
  none,     ///< not written; what is used only has to be declared before
  simple,   ///< by its name alone
  scoped,   ///< by its "::" name
  absolute  ///< by its "::" name with "::" before it
};

/// One entry. It lies in memory of the run, and so does its text.
struct Use {
  Node* user;
  Node* used;
  Use* next;         ///< the next of the same user; behind the last one comes the first
  const char* name;  ///< the simple name, where it isn't that of what is used; else null
  std::uint32_t nameSize;
  UseRole role;
  Spelling spelling;
  /// What is used must be declared before its user.
  bool isDependency : 1;
  /// Its user stands in the scope where the used is declared, so that the simple name is found.
  bool isInScope : 1;
  /// It stands before its user's name, and so outside the scope that this makes: a result's type.
  bool isBeforeName : 1;
  /// What is used is an element of a sequence.
  bool isInSequence : 1;
  /// The base is one to which a value may be truncated.
  bool isTruncatable : 1;

  /// The simple name, as the model has it at this place.
  std::string_view Name() const;
};

/// The name as it is spelled.
std::string TextOf(const Use& use);
/// Writes it.
Writer& operator<<(Writer& out, const Use& use);
/// Writes a name.
Writer& operator<<(Writer& out, const Identifier& identifier);

/// The uses of one declaration, in the order entered; no larger than a pointer, since a model may
/// have a million declarations.
class Uses {
 public:
  template <typename Item>
  class Iterator {
   public:
    Iterator(Item* use, Item* last) : use_(use), last_(last) {}
    Item& operator*() const { return *use_; }
    Iterator& operator++() {
      use_ = use_ == last_ ? nullptr : use_->next;
      return *this;
    }
    friend bool operator==(const Iterator&, const Iterator&) = default;

   private:
    Item* use_;  // null at the end
    Item* last_;
  };

  Iterator<const Use> begin() const { return {last_ == nullptr ? nullptr : last_->next, last_}; }
  Iterator<const Use> end() const { return {nullptr, last_}; }
  Iterator<Use> begin() { return {last_ == nullptr ? nullptr : last_->next, last_}; }
  Iterator<Use> end() { return {nullptr, last_}; }

  /// Whether there is one of a role.
  bool Has(UseRole role) const { return First(role) != nullptr; }
  /// The first of a role; null when there is none.
  const Use* First(UseRole role) const;
  /// Writes the names of a role, with ", " between two.
  void Write(UseRole role, Writer& out) const;

  void Append(Use& use);
  /// Puts one of them before all others.
  void BringForward(Use& use);

 private:
  Use* last_ = nullptr;
};

}  // namespace mdktoidl
