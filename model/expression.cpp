#include "model/expression.h"

#include <vector>

#include "model/text_table.h"

namespace model {

namespace {

/// The name without its single quotes; empty when the quotes don't match or nothing is in them.
std::string_view Unquote(std::string_view name) {
  const bool quoted = name.size() > 2 && name.front() == '\'' && name.back() == '\'';
  if (quoted) name = name.substr(1, name.size() - 2);
  return name.find('\'') == name.npos ? name : std::string_view();
}

Expression Parse(std::string_view text) {
  constexpr std::string_view opening = " (. ";
  constexpr std::string_view closing = ".)";
  const std::size_t end = text.find(opening);
  if (end == text.npos) return {};
  const std::string_view name = Unquote(text.substr(0, end));
  std::string_view tag = text.substr(end + opening.size());
  if (name.empty() || !tag.ends_with(closing)) return {};
  tag.remove_suffix(closing.size());
  if (tag.empty()) return {Symbol(name), Symbol(), true};
  if (tag.size() < 2 || tag.back() != ' ') return {};
  tag.remove_suffix(1);
  return {Symbol(name), Symbol(tag), true};
}

struct Cache {
  TextTable texts;
  std::vector<Expression> parsed;
};

}  // namespace

const Expression& Expression::Of(std::string_view text) {
  static Cache& cache = *new Cache;  // never freed, like the symbols
  const std::uint32_t number = cache.texts.Enter(text);
  // As a rule one, unless memory ran out between the two steps.
  while (cache.parsed.size() <= number) {
    const auto missing = static_cast<std::uint32_t>(cache.parsed.size());
    cache.parsed.push_back(Parse(cache.texts.Text(missing)));
  }
  return cache.parsed[number];
}

}  // namespace model
