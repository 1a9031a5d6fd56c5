#include "model/symbol.h"

#include "model/text_table.h"

namespace model {

namespace {

/// Never freed: symbols are made before `main` begins and may be used after it ends.
TextTable& Symbols() {
  static TextTable& table = []() -> TextTable& {
    auto& made = *new TextTable;
    made.Enter("");
    return made;
  }();
  return table;
}

}  // namespace

Symbol::Symbol(std::string_view text) : id_(Symbols().Enter(text)) {}

std::optional<Symbol> Symbol::Find(std::string_view text) {
  const auto number = Symbols().Find(text);
  if (!number) return std::nullopt;
  Symbol symbol;
  symbol.id_ = *number;
  return symbol;
}

std::string_view Symbol::Text() const { return Symbols().Text(id_); }

}  // namespace model
