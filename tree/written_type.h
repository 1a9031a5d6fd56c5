// The type of a declaration as it writes it: predefined or by name, with the templates around it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "agent/messages.h"
#include "output/layout.h"
#include "tree/use.h"
#include "types/type_reference.h"

namespace mdktoidl {

/// What a construct says about its type, by what is wrong with it.
struct TypeDiagnostics {
  std::string_view word;                ///< the construct word, with its blank
  std::optional<Message> boundUnknown;  ///< nothing when another construct says so
  Message typeUnknown;
  std::optional<Message> typeAnonymous;  ///< nothing where templates are welcome
  Message typeNotExported;
};

class WrittenType {
 public:
  /// Takes over what was found out about the type. `named` is the use of its definition, `bound`
  /// that of the constant that bounds its multiplicity; both null for none.
  void Set(TypeReference&& reference, const Use* named, const Use* bound);
  /// Makes it an unbounded sequence of itself.
  void WrapInSequence();

  TypeKind Kind() const { return kind_; }
  /// The declaration that it names, inside all templates; null for none.
  const Node* Definition() const { return named_ == nullptr ? nullptr : named_->used; }
  /// The use by which it names that; null for none.
  const Use* Named() const { return named_; }
  /// What is written behind the declared name; "[2][3]" for an array, mostly empty.
  std::string_view DeclaratorSuffix() const;

 private:
  friend Writer& operator<<(Writer& out, const WrittenType& type);

  /// What only templates have.
  struct Template {
    std::vector<SequenceLevel> sequences;
    const Use* bound;  // of the outermost sequence; null for none
    std::string declaratorSuffix;
  };

  std::string_view Predefined() const { return {predefined_, predefinedSize_}; }
  bool endsWithBracket() const;

  const Use* named_ = nullptr;          // what the type is inside all templates, by name
  const char* predefined_ = nullptr;    // the same if it is predefined; lives as long as the run
  std::unique_ptr<Template> template_;  // null for most
  std::uint32_t predefinedSize_ = 0;
  TypeKind kind_ = unknownType;
};

/// Writes the type, all but what stands behind the declared name.
Writer& operator<<(Writer& out, const WrittenType& type);

}  // namespace mdktoidl
