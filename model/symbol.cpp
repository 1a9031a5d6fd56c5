#include "model/symbol.h"

#include <array>
#include <string>

#include "model/short_text.h"
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

/// Whoever asks for a name keeps it at one address, as a rule. What was found for an address is
/// tried first: to see that the text there is the same costs less than to hash it.
std::optional<Symbol> Symbol::Find(std::string_view text) {
  struct Found {
    const char* address = nullptr;
    std::string_view text;
    Symbol symbol;
  };
  constexpr std::size_t stringSize = sizeof(std::string);
  static std::array<Found, 256> found;
  const auto cell = reinterpret_cast<std::uintptr_t>(text.data()) / stringSize % found.size();
  Found& last = found[cell];
  if (last.address == text.data() && SameText(last.text, text)) return last.symbol;
  const auto number = Symbols().Find(text);
  if (!number) return std::nullopt;
  last.symbol.id_ = *number;
  last.text = last.symbol.Text();
  last.address = text.data();
  return last.symbol;
}

std::string_view Symbol::Text() const { return Symbols().Text(id_); }

}  // namespace model
