// Names of the model's vocabulary, interned: metaclasses, properties, stereotypes and tags.
//
// Elements hold and compare names as small numbers, so a question that arrives as text is hashed
// once. The table is process-wide, only grows, and is not meant for the names of model elements.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace model {

/// An interned name. Two symbols are equal exactly when their texts are.
class Symbol {
 public:
  /// The empty name.
  constexpr Symbol() = default;

  /// The symbol of a text, entered into the table when it is new.
  explicit Symbol(std::string_view text);

  /// The symbol of a text that is in the table already; nothing otherwise.
  static std::optional<Symbol> Find(std::string_view text);

  /// The name; stays valid until the process ends.
  std::string_view Text() const;

  constexpr std::uint32_t Id() const { return id_; }
  friend constexpr bool operator==(Symbol, Symbol) = default;

 private:
  std::uint32_t id_ = 0;
};

}  // namespace model
