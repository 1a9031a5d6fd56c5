// The type of a declaration as it writes it: predefined or by name, with the templates around it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
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

  /// Makes it the same as another declaration's, with the uses that its own declaration has of the
  /// definition and of the bound.
  void CopyFrom(const WrittenType& other, const Use* named, const Use* bound);
  /// Makes it a plain name.
  void SetNamed(const Use& named);

  /// Whether it is more than a name or a predefined type: a sequence, an array or a fixed-point
  /// number, which IDL takes only in certain places. Bounded strings it takes everywhere.
  bool NeedsName() const;
  /// Whether it is one of the names that the type consists of.
  bool Writes(const Use& use) const;

  TypeKind Kind() const { return kind_; }
  /// Whether it is a sequence or an array. Bounded strings and fixed-point numbers are predefined.
  bool isMadeOfElements() const { return template_ != nullptr; }
  /// What is predefined inside all templates: "unsigned long", "string<8>"; empty for a definition.
  std::string_view Predefined() const { return {predefined_, predefinedSize_}; }
  /// The declaration that it names, inside all templates; null for none.
  Node* Definition() const { return named_ == nullptr ? nullptr : named_->used; }
  /// The use by which it names that; null for none.
  const Use* Named() const { return named_; }
  /// The sequences around that, from the outside in.
  std::span<const SequenceLevel> Sequences() const;
  /// The constant that bounds the outermost sequence by its name; null for none.
  Node* BoundConstant() const;
  /// What is written behind the declared name; "[2][3]" for an array, mostly empty.
  std::string_view DeclaratorSuffix() const;

 private:
  friend Writer& operator<<(Writer& out, const WrittenType& type);

  /// What only templates have.
  struct Template {
    std::vector<SequenceLevel> sequences;
    const Use* bound = nullptr;  // of the outermost sequence; null for none
    std::string declaratorSuffix;
  };

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
