// A declaration in its role as the user of a type.
#pragma once

#include <string>
#include <string_view>

#include "tree/node.h"
#include "types/type_user.h"

namespace mdktoidl {

class DeclarationUser : public TypeUser {
 public:
  /// Borrows both; `word` is the construct word of messages, with its blank.
  DeclarationUser(const Node& declaration, std::string_view word)
      : declaration_(declaration), word_(word) {}

  std::string Describe() const override;
  std::string Spell(mdk::IMdeEntity* definition) const override;

 private:
  /// Whether the simple name of `other`, which stands in a scope around the declaration, means
  /// something else here.
  bool isHidden(const Node& other) const;

  const Node& declaration_;
  std::string_view word_;
};

}  // namespace mdktoidl
