// The expressions by which tagged values are asked for: "Stereotype (. tag .)".
#pragma once

#include <string_view>

#include "model/symbol.h"

namespace model {

struct Expression {
  /// The name of the stereotype or keyword, without quotes.
  Symbol stereotype;
  /// The empty name when the expression only asks whether the stereotype or keyword is applied.
  Symbol tag;
  /// False for a text that is no expression; the names are empty then.
  bool valid = false;

  /// Reads an expression; each text is taken apart once in a process. Exactly one blank stands
  /// where the form above has one, and "(. .)" asks for no tag. The reference is valid until the
  /// next call.
  static const Expression& Of(std::string_view text);
};

}  // namespace model
